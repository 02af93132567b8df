#pragma once

#include "core/forms/toolkit.h"
#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

/// Shows a box over its owner, null for none, and waits for the answer.
MessageAnswer AskByBox(const BoxRequest& box, HWND owner);

/// What a box shows, read from its window.
BoxRequest ShownIn(HWND window);

/// The identifier of a box's button.
int ButtonIdOf(MessageAnswer answer);

/// The name of the host application: of its program file where it says none.
std::wstring NameOfHost();

}  // namespace fiscalon::win32
