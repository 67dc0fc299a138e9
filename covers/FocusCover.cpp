#include "FocusCover.h"

#include "GeometricShapes.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QRadialGradient>
#include <QTransform>

#include <cmath>
#include <numbers>

namespace mireval {
namespace {

// From ink to paper.
constexpr QRgb ink = 0xff0f1543;
constexpr QRgb night = 0xff1b2558;
constexpr QRgb graphite = 0xff2a3668;
constexpr QRgb slate = 0xff5466a0;
constexpr QRgb mist = 0xffacbae4;
constexpr QRgb paper = 0xfff4f6fb;
// The one accent of a picture is one of these.
constexpr QRgb blue = 0xff5b7cff;
constexpr QRgb ember = 0xffff7a52;

// A colour between ink at 0 and paper at 1, without the greys of a straight mixture.
QColor tone(double lightness) {
  return lightness < 0.5 ? mix(night, slate, lightness / 0.5) : mix(slate, paper, (lightness - 0.5) / 0.5);
}

QLinearGradient diagonal(const QRectF& area, QColor topLeft, QColor bottomRight) {
  QLinearGradient gradient(area.topLeft(), area.bottomRight());
  gradient.setColorAt(0, topLeft);
  gradient.setColorAt(1, bottomRight);
  return gradient;
}

void fillGround(QPainter& painter, QColor topLeft, QColor bottomRight) {
  const QRectF ground(0, 0, pictureSide, pictureSide);
  painter.fillRect(ground, diagonal(ground, topLeft, bottomRight));
}

void fillDisc(QPainter& painter, QPointF centre, double radius, QColor topLeft, QColor bottomRight) {
  painter.fillPath(circle(centre, radius), diagonal(squareAround(centre, radius), topLeft, bottomRight));
}

void fillAccent(QPainter& painter, QPointF centre, double radius, QColor accent) {
  painter.fillPath(circle(centre, radius), accent);
}

// Discs on discs, each a little off the middle of the one below.
void paintTerraces(QPainter& painter) {
  constexpr int terraces = 8;
  constexpr double outermost = 430;
  constexpr double innermost = 80;
  const QPointF drift(-16, 19);
  fillGround(painter, night, ink);
  for (int terrace = 0; terrace < terraces; ++terrace) {
    const double share = terrace / (terraces - 1.0);
    fillDisc(painter, middle + terrace * drift, std::lerp(outermost, innermost, share),
             tone(0.2 + 0.8 * share), tone(0.06 + 0.72 * share));
  }
  fillAccent(painter, polar(middle, outermost - 50, -42), 34, ember);
}

// A line in balance: a large disc hangs below it, a small one lies on it.
void paintBalance(QPainter& painter) {
  constexpr double tilt = -11;
  constexpr double lineHalfWidth = 5;
  constexpr double large = 270;
  constexpr double small = 52;
  fillGround(painter, mix(paper, mist, 0.6), mix(mist, slate, 0.25));
  painter.translate(482, 362);
  painter.rotate(tilt);
  fillDisc(painter, QPointF(130, large + lineHalfWidth), large, graphite, ink);
  painter.fillRect(QRectF(-pictureSide, -lineHalfWidth, 2 * pictureSide, 2 * lineHalfWidth), QColor(ink));
  fillAccent(painter, QPointF(-262, -small - lineHalfWidth), small, ember);
}

void paintTurningSquares(QPainter& painter) {
  constexpr int squares = 15;
  constexpr double turn = 10;
  const double radians = turn * std::numbers::pi / 180;
  // Each square touches the sides of the one around it.
  const double shrink = 1 / (std::cos(radians) + std::sin(radians));
  painter.translate(middle);
  double halfSide = pictureSide / 2;
  for (int square = 0; square < squares; ++square) {
    const double share = square / (squares - 1.0);
    const QRectF area = squareAround(QPointF(), halfSide);
    painter.fillRect(area, diagonal(area, tone(0.1 + 0.9 * share), tone(0.8 * share)));
    painter.rotate(turn);
    halfSide *= shrink;
  }
  painter.fillRect(squareAround(QPointF(), halfSide), QColor(blue));
}

// Where a point of a flat sheet goes when a sphere rises under it.
QPointF overSphere(QPointF point, double sphereRadius) {
  const double distance = std::hypot(point.x(), point.y());
  if (distance == 0 || distance >= sphereRadius) {
    return point;
  }
  const double slack = 1 - distance / sphereRadius;
  return point * (sphereRadius * (1 - slack * slack) / distance);
}

QPainterPath lineOverSphere(double top, double bottom, double sphereRadius) {
  constexpr double step = 4;
  constexpr int steps = static_cast<int>(pictureSide / step);
  QPolygonF outline;
  for (int i = -steps; i <= steps; ++i) {
    outline << overSphere(QPointF(i * step, top), sphereRadius);
  }
  for (int i = steps; i >= -steps; --i) {
    outline << overSphere(QPointF(i * step, bottom), sphereRadius);
  }
  QPainterPath path;
  path.addPolygon(outline);
  return path;
}

void paintSphereUnderLines(QPainter& painter) {
  constexpr double radius = 320;
  constexpr double spacing = 50;
  constexpr double halfWidth = 8;
  constexpr int accentLine = 2;
  fillGround(painter, paper, mist);
  painter.translate(575, 475);
  QRadialGradient shade(QPointF(), radius, QPointF(-0.4 * radius, -0.45 * radius));
  shade.setColorAt(0, paper);
  shade.setColorAt(1, mist);
  painter.fillPath(circle(QPointF(), radius), shade);
  for (int line = -9; line <= 10; ++line) {
    const double centre = line * spacing;
    painter.fillPath(lineOverSphere(centre - halfWidth, centre + halfWidth, radius),
                     QColor(line == accentLine ? blue : ink));
  }
}

void paintAperture(QPainter& painter) {
  constexpr int blades = 7;
  constexpr double turn = 360.0 / blades;
  constexpr double opening = 170;
  constexpr double housing = 392;
  constexpr double rim = 44;
  constexpr double start = -104;
  constexpr double reach = 4;
  fillGround(painter, mist, slate);
  fillDisc(painter, middle, housing + rim, night, ink);
  QPolygonF hole;
  for (int blade = 0; blade < blades; ++blade) {
    const double angle = start + blade * turn;
    const QPointF before = polar(middle, opening, angle - turn);
    const QPointF first = polar(middle, opening, angle);
    const QPointF second = polar(middle, opening, angle + turn);
    const QPointF tail = first + reach * (first - before);
    const QPointF tip = second + reach * (second - first);
    // The edge of a blade catches the light, its tail lies in the shade of the next.
    QLinearGradient shade((first + second) / 2, polar(middle, housing, angle + turn / 2));
    const double light = (1 - std::cos((angle + 75) * std::numbers::pi / 180)) / 2;
    shade.setColorAt(0, tone(0.3 + 0.4 * light));
    shade.setColorAt(1, tone(0.05 + 0.25 * light));
    painter.fillPath(polygon({first, second, tip, tail}).intersected(circle(middle, housing)), shade);
    hole << first;
  }
  QPainterPath light;
  light.addPolygon(hole);
  painter.fillPath(light, QColor(paper));
  fillAccent(painter, polar(middle, housing + rim / 2, -45), 17, ember);
}

void paintLitCell(QPainter& painter) {
  constexpr int cells = 7;
  constexpr int litColumn = 4;
  constexpr int litRow = 2;
  constexpr double margin = 95;
  constexpr double gap = 22;
  constexpr double cell = (pictureSide - 2 * margin + gap) / cells;
  const QColor unlit = mix(night, graphite, 0.3);
  fillGround(painter, night, ink);
  for (int row = 0; row < cells; ++row) {
    for (int column = 0; column < cells; ++column) {
      const double distance = std::hypot(column - litColumn, row - litRow);
      const double glow = 1.25 * std::exp(-0.62 * distance);
      const QRectF area(margin + column * cell, margin + row * cell, cell - gap, cell - gap);
      const bool isLit = column == litColumn && row == litRow;
      painter.fillRect(area, isLit ? QColor(paper) : mix(unlit, blue, glow));
    }
  }
}

void paintInterference(QPainter& painter) {
  constexpr int circles = 16;
  constexpr double spacing = 20.5;
  const QPointF first(378, 400);
  const QPointF second(622, 600);
  fillGround(painter, mix(paper, mist, 0.1), mix(mist, slate, 0.15));
  QPainterPath rings;
  rings.setFillRule(Qt::OddEvenFill);
  for (int ring = 1; ring <= circles; ++ring) {
    rings.addPath(circle(first, ring * spacing));
    rings.addPath(circle(second, ring * spacing));
  }
  painter.fillPath(rings, QColor(ink));
  fillAccent(painter, first, 2 * spacing, blue);
}

// A pendulum that swings two ways at once draws while it comes to rest.
void paintPendulumTrace(QPainter& painter) {
  constexpr double reach = 405;
  constexpr double rest = 0.08;
  constexpr int rounds = 11;
  constexpr int steps = 400;
  fillGround(painter, night, ink);
  QPolygonF trace;
  for (int step = 0; step <= rounds * steps; ++step) {
    const double round = static_cast<double>(step) / steps;
    const double phase = round * 2 * std::numbers::pi;
    const double swing = reach * std::lerp(1, rest, round / rounds);
    trace << middle + swing * QPointF(std::sin(2 * phase), std::sin(3 * phase));
  }
  QRadialGradient light(middle, 1.2 * reach);
  light.setColorAt(0, paper);
  light.setColorAt(0.4, mist);
  light.setColorAt(1, slate);
  painter.setPen(QPen(light, 5));
  painter.drawPolyline(trace);
  fillAccent(painter, middle, 44, ember);
}

void paintLens(QPainter& painter) {
  constexpr int beams = 7;
  constexpr double spacing = 84;
  constexpr double halfWidth = 20;
  constexpr double lensX = 390;
  const QPointF focus(745, 500);
  fillGround(painter, slate, graphite);
  for (int beam = 0; beam < beams; ++beam) {
    const double y = middle.y() + (beam - (beams - 1) / 2.0) * spacing;
    const QPointF top(lensX, y - halfWidth);
    const QPointF bottom(lensX, y + halfWidth);
    const QPointF topPast = focus + (focus - top);
    const QPointF bottomPast = focus + (focus - bottom);
    painter.fillPath(polygon({QPointF(0, top.y()), top, focus, bottom, QPointF(0, bottom.y())}),
                     QColor(paper));
    painter.fillPath(polygon({focus, topPast, bottomPast}), QColor(slate));
  }
  constexpr double face = 640;
  constexpr double bulge = 548;
  const QPainterPath lens =
      circle(QPointF(lensX - bulge, 500), face).intersected(circle(QPointF(lensX + bulge, 500), face));
  QLinearGradient glass(lens.boundingRect().topLeft(), lens.boundingRect().topRight());
  glass.setColorAt(0, mist);
  glass.setColorAt(1, graphite);
  painter.setOpacity(0.85);
  painter.fillPath(lens, glass);
  painter.setOpacity(1);
  fillAccent(painter, focus, 42, ember);
}

void paintOrbit(QPainter& painter) {
  const QPointF planet(310, 720);
  constexpr double planetRadius = 370;
  fillGround(painter, mix(blue, graphite, 0.42), mix(night, blue, 0.08));
  const QRectF orbit(-690, -210, 1380, 420);
  const QTransform place = QTransform::fromTranslate(planet.x(), planet.y()).rotate(-32);
  const auto drawHalf = [&painter, &orbit, &place](double from) {
    QPainterPath half;
    half.arcMoveTo(orbit, from);
    half.arcTo(orbit, from, 180);
    painter.strokePath(place.map(half), QPen(QColor(paper), 7));
  };
  drawHalf(0);
  QRadialGradient shade(planet, planetRadius * 1.55, planet + QPointF(120, -150));
  shade.setColorAt(0, paper);
  shade.setColorAt(0.35, mist);
  shade.setColorAt(0.8, slate);
  shade.setColorAt(1, graphite);
  painter.fillPath(circle(planet, planetRadius), shade);
  drawHalf(180);
  const QPointF moon = polar(QPointF(), 1, -28);
  fillAccent(painter, place.map(QPointF(moon.x() * orbit.right(), moon.y() * orbit.bottom())), 42, ember);
}

}  // namespace

void FocusCover::paint(QPainter& painter, int number) {
  constexpr void (*pictures[])(QPainter&) = {
      paintTerraces, paintBalance, paintTurningSquares, paintSphereUnderLines,
      paintAperture, paintLitCell, paintInterference,   paintPendulumTrace,
      paintLens,     paintOrbit,
  };
  pictures[number - 1](painter);
}

}  // namespace mireval
