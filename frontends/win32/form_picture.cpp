#include "frontends/win32/form_picture.h"

#include <objidl.h>

#include <algorithm>

// Its headers want these by their bare names.
using std::max;
using std::min;

#include <gdiplus.h>

namespace fiscalon::win32 {
namespace {

std::string ContentOf(IStream& stream) {
  const LARGE_INTEGER start = {};
  STATSTG state = {};
  stream.Stat(&state, STATFLAG_NONAME);
  stream.Seek(start, STREAM_SEEK_SET, nullptr);
  std::string content(static_cast<size_t>(state.cbSize.QuadPart), '\0');
  ULONG read = 0;
  stream.Read(content.data(), static_cast<ULONG>(content.size()), &read);
  content.resize(read);
  return content;
}

std::string PngOf(HBITMAP bitmap) {
  constexpr CLSID kPng = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  IStream* stream = nullptr;
  if (FAILED(::CreateStreamOnHGlobal(nullptr, TRUE, &stream)))
    return {};
  Gdiplus::Bitmap image(bitmap, nullptr);
  const bool saved = image.Save(stream, &kPng, nullptr) == Gdiplus::Ok;
  std::string png = saved ? ContentOf(*stream) : std::string();
  stream->Release();
  return png;
}

}  // namespace

FormPicture::FormPicture() {
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&library_, &input, nullptr);
}

FormPicture::~FormPicture() {
  Gdiplus::GdiplusShutdown(library_);
}

void FormPicture::Take(HWND window) {
  ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  RECT place = {};
  ::GetWindowRect(window, &place);
  const int width = place.right - place.left, height = place.bottom - place.top;
  HDC shown = ::GetWindowDC(window);
  HDC surface = ::CreateCompatibleDC(shown);
  HBITMAP bitmap = ::CreateCompatibleBitmap(shown, width, height);
  HGDIOBJ before = ::SelectObject(surface, bitmap);
  ::BitBlt(surface, 0, 0, width, height, shown, 0, 0, SRCCOPY);
  ::SelectObject(surface, before);
  png_ = PngOf(bitmap);
  ::DeleteObject(bitmap);
  ::DeleteDC(surface);
  ::ReleaseDC(window, shown);
}

}  // namespace fiscalon::win32
