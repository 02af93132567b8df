#include "frontends/qt/form_picture.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QStyleFactory>

#include "frontends/qt/form_dialog.h"

namespace fiscalon::qt {

struct ThemeColours {
  QRgb window, base, text, button, highlight, titleBar;
};

namespace {

constexpr ThemeColours kLight = {0xFFEFEFEF, 0xFFFFFFFF, 0xFF1A1A1A, 0xFFF6F6F6, 0xFF2A6DB0, 0xFFDADDE1};
constexpr ThemeColours kDark = {0xFF2B2D30, 0xFF1C1E20, 0xFFE6E6E6, 0xFF3A3D41, 0xFF3F7FC4, 0xFF1F2123};

QPalette PaletteOf(const ThemeColours& colours) {
  QPalette palette(QColor(colours.button), QColor(colours.window));
  palette.setColor(QPalette::Base, QColor(colours.base));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(role, QColor(colours.text));
  QColor faint(colours.text);
  faint.setAlphaF(0.5F);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, faint);
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(colours.window));
  palette.setColor(QPalette::Highlight, QColor(colours.highlight));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

}  // namespace

struct FormPicture::State {
  const ThemeColours& colours;
  double scale;
  QImage image;
};

FormPicture::FormPicture(Theme theme, double scale)
    : state_(std::make_unique<State>(State{theme == Theme::Dark ? kDark : kLight, scale, {}})) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(PaletteOf(state_->colours));
}

FormPicture::~FormPicture() = default;

void FormPicture::Take(FormDialog& dialog) {
  constexpr int kPoints = 10;
  constexpr double kCorner = 6;
  QCoreApplication::sendPostedEvents();
  QFont titleFont = QApplication::font();
  titleFont.setPointSize(kPoints);
  titleFont.setBold(true);
  const int bar = QFontMetrics(titleFont).height() * 2;
  const QSize size = dialog.size() + QSize(2, bar + 2);
  QImage image(size * state_->scale, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(state_->scale);
  image.fill(Qt::transparent);

  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath outline;
  outline.addRoundedRect(QRectF(QPointF(0, 0), QSizeF(size)).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
  painter.setClipPath(outline);
  painter.fillRect(QRect(QPoint(0, 0), size), QColor(state_->colours.titleBar));
  painter.setPen(QColor(state_->colours.text));
  painter.setFont(titleFont);
  painter.drawText(QRect(0, 0, size.width(), bar), Qt::AlignCenter, dialog.windowTitle());
  dialog.render(&painter, QPoint(1, bar));
  painter.setClipping(false);
  QColor edge(state_->colours.text);
  edge.setAlphaF(0.35F);
  painter.strokePath(outline, QPen(edge, 1));
  painter.end();
  state_->image = image;
}

std::string FormPicture::Png() const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  state_->image.save(&buffer, "PNG");
  return bytes.toStdString();
}

}  // namespace fiscalon::qt
