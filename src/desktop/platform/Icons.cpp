#include "desktop/platform/Icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>
#include <functional>

namespace quorvane::desktop {

namespace {

using vbide::ComponentType;

constexpr double kGrid = 16;  // all pictures are drawn on a grid of 16 by 16
constexpr std::array kSizes = {16, 20, 24, 32, 48, 64, 128};

const QColor kBlue(0x3B, 0x82, 0xC4);
const QColor kGreen(0x3F, 0x9C, 0x5A);
const QColor kOrange(0xD9, 0x83, 0x24);
const QColor kPurple(0x8A, 0x5F, 0xBF);
const QColor kGray(0x7D, 0x87, 0x91);
const QColor kYellow(0xE0, 0xB0, 0x3A);
const QColor kPaper(0xFD, 0xFD, 0xFE);

QIcon Draw(const std::function<void(QPainter&)>& draw) {
  QIcon icon;
  for (const int size : kSizes) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / kGrid, size / kGrid);
    draw(painter);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

/// A sheet with its corner folded, in the colour of its kind.
void DrawSheet(QPainter& painter, const QColor& color) {
  QPainterPath sheet;
  sheet.moveTo(3, 1.5);
  sheet.lineTo(9.5, 1.5);
  sheet.lineTo(13, 5);
  sheet.lineTo(13, 14.5);
  sheet.lineTo(3, 14.5);
  sheet.closeSubpath();
  painter.setPen(QPen(color, 1.2));
  painter.setBrush(kPaper);
  painter.drawPath(sheet);
  painter.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 5}, {13, 5}}));
}

void DrawLines(QPainter& painter, const QColor& color) {
  painter.setPen(QPen(color, 1.2));
  for (const double y : {7.5, 9.8, 12.1}) painter.drawLine(QPointF(5, y), QPointF(y > 12 ? 9 : 11, y));
}

/// A small window with its title bar.
void DrawWindow(QPainter& painter, const QRectF& place, const QColor& color) {
  painter.setPen(QPen(color, 1.2));
  painter.setBrush(kPaper);
  painter.drawRoundedRect(place, 1.2, 1.2);
  painter.fillRect(QRectF(place.left(), place.top(), place.width(), 3), color);
}

void DrawForm(QPainter& painter, const QColor& color) {
  DrawWindow(painter, QRectF(1.8, 2.5, 12.4, 11), color);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color.lighter(140));
  painter.drawRoundedRect(QRectF(8.3, 10, 4.2, 2), 0.6, 0.6);
  painter.fillRect(QRectF(3.8, 7.3, 6, 1.1), color.lighter(150));
}

void DrawClass(QPainter& painter) {
  DrawSheet(painter, kOrange);
  painter.setPen(QPen(kOrange, 1.1));
  painter.setBrush(kOrange.lighter(150));
  painter.drawRect(QRectF(5.2, 7.2, 2.6, 2.6));
  painter.drawEllipse(QRectF(8.2, 9.6, 3, 3));
}

void DrawControl(QPainter& painter) {
  painter.setPen(QPen(kPurple, 1.2));
  painter.setBrush(kPaper);
  painter.drawRoundedRect(QRectF(1.8, 4, 12.4, 8), 1.5, 1.5);
  painter.setBrush(kPurple.lighter(150));
  painter.drawRoundedRect(QRectF(3.8, 6.2, 8.4, 3.6), 1, 1);
}

void DrawProject(QPainter& painter, const QRectF& place) {
  DrawWindow(painter, place, kBlue);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kGreen);
  painter.drawEllipse(QPointF(place.right() - 2.6, place.bottom() - 2.4), 1.5, 1.5);
  painter.setBrush(kOrange);
  painter.drawRect(QRectF(place.left() + 1.6, place.bottom() - 3.9, 2.8, 2.8));
}

}  // namespace

QIcon Icons::Program() {
  return Draw([](QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(kBlue);
    painter.drawRoundedRect(QRectF(0.8, 0.8, 14.4, 14.4), 3, 3);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 1.9));
    painter.drawEllipse(QPointF(7.2, 7.2), 3.6, 3.6);
    painter.setPen(QPen(kYellow, 2.1, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(10, 10), QPointF(12.8, 12.8));
  });
}

QIcon Icons::Group() {
  return Draw([](QPainter& painter) {
    DrawProject(painter, QRectF(1.5, 1.5, 10, 9));
    DrawProject(painter, QRectF(4.5, 5, 10, 9.5));
  });
}

QIcon Icons::Project() {
  return Draw([](QPainter& painter) { DrawProject(painter, QRectF(1.8, 2.3, 12.4, 11.4)); });
}

QIcon Icons::Folder() {
  return Draw([](QPainter& painter) {
    painter.setPen(QPen(kYellow.darker(130), 1));
    painter.setBrush(kYellow);
    painter.drawRoundedRect(QRectF(1.6, 3, 6, 4), 1, 1);
    painter.setBrush(kYellow.lighter(118));
    painter.drawRoundedRect(QRectF(1.6, 4.6, 12.8, 8.6), 1, 1);
  });
}

QIcon Icons::ByName(std::u16string_view name) {
  if (name == u"tab-new") {
    return Draw([](QPainter& painter) {
      painter.setPen(QPen(kGreen, 2.2, Qt::SolidLine, Qt::RoundCap));
      painter.drawLine(QPointF(8, 3), QPointF(8, 13));
      painter.drawLine(QPointF(3, 8), QPointF(13, 8));
    });
  }
  if (name == u"tab-close") {
    return Draw([](QPainter& painter) {
      painter.setPen(QPen(kGray, 1.8, Qt::SolidLine, Qt::RoundCap));
      painter.drawLine(QPointF(4, 4), QPointF(12, 12));
      painter.drawLine(QPointF(12, 4), QPointF(4, 12));
    });
  }
  return {};
}

QIcon Icons::Component(ComponentType type) {
  return Draw([type](QPainter& painter) {
    switch (type) {
      case ComponentType::ClassModule:
        return DrawClass(painter);
      case ComponentType::VBForm:
      case ComponentType::MSForm:
        return DrawForm(painter, kBlue);
      case ComponentType::VBMDIForm:
        DrawForm(painter, kBlue);
        return DrawWindow(painter, QRectF(4, 6.8, 5.5, 5), kBlue.darker(120));
      case ComponentType::UserControl:
      case ComponentType::PropPage:
        return DrawControl(painter);
      case ComponentType::DocObject:
      case ComponentType::ActiveXDesigner:
        return DrawForm(painter, kPurple);
      case ComponentType::StdModule:
        DrawSheet(painter, kGreen);
        return DrawLines(painter, kGreen);
      case ComponentType::ResFile:
      case ComponentType::RelatedDocument:
        DrawSheet(painter, kGray);
        return DrawLines(painter, kGray.lighter(130));
    }
  });
}

}  // namespace quorvane::desktop
