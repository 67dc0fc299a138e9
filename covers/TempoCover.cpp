#include "TempoCover.h"

#include "GeometricShapes.h"

#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <array>
#include <cmath>
#include <numbers>

namespace mireval {
namespace {

constexpr QRgb aubergine = 0xff1d0a20;
constexpr QRgb plum = 0xff4a1440;
constexpr QRgb red = 0xffff3326;
constexpr QRgb orange = 0xffff7417;
constexpr QRgb amber = 0xffffae3d;
constexpr QRgb straw = 0xffffe88a;

void fillGround(QPainter& painter, QColor colour) {
  painter.fillRect(QRectF(0, 0, pictureSide, pictureSide), colour);
}

void fill(QPainter& painter, const QPainterPath& path, QColor colour) {
  painter.fillPath(path, colour);
}

// A steady beat of stripes whose widths swell and sink.
void paintPulsingStripes(QPainter& painter) {
  constexpr double beat = 118;
  constexpr int beats = 6;
  constexpr int accent = 1;
  constexpr double reach = pictureSide;
  fillGround(painter, aubergine);
  painter.translate(middle);
  painter.rotate(-45);
  for (int i = -beats; i <= beats; ++i) {
    const double swell = (1 + std::cos((i - accent) * std::numbers::pi / 4)) / 2;
    const double width = beat * std::lerp(0.12, 0.86, swell);
    const QColor colour = i == accent   ? QColor(straw)
                          : swell > 0.4 ? mix(orange, amber, swell)
                                        : mix(red, orange, swell);
    painter.fillRect(QRectF(i * beat - width / 2, -reach, width, 2 * reach), colour);
  }
}

void paintGrowingChevrons(QPainter& painter) {
  constexpr int chevrons = 7;
  constexpr double slope = 300;
  constexpr double growth = 1.32;
  constexpr double spread = 2.5;
  fillGround(painter, aubergine);
  double tip = 100;
  double width = 24;
  for (int i = 0; i < chevrons; ++i) {
    const double back = tip - width;
    const QColor colour = i == chevrons - 2 ? QColor(straw) : mix(red, amber, i / (chevrons - 1.0));
    fill(painter,
         polygon({QPointF(back - slope, 0), QPointF(tip - slope, 0), QPointF(tip, 500),
                  QPointF(tip - slope, 1000), QPointF(back - slope, 1000), QPointF(back, 500)}),
         colour);
    tip += width * spread;
    width *= growth;
  }
}

void paintSteppedBlocks(QPainter& painter) {
  constexpr int blocks = 4;
  // Never higher than the one behind, so that the top of each is in sight.
  constexpr int heights[blocks][blocks] = {{5, 3, 3, 1}, {4, 3, 1, 1}, {2, 2, 1, 0}, {2, 0, 0, 0}};
  constexpr double half = pictureSide / (2 * blocks);
  constexpr double step = 104;
  constexpr double floorY = 600;
  const QPointF down(0, pictureSide);
  fillGround(painter, aubergine);
  for (int row = 0; row < blocks; ++row) {
    for (int column = 0; column < blocks; ++column) {
      const QPointF back(middle.x() + (column - row) * half,
                         floorY + (column + row) * half / 2 - heights[row][column] * step);
      const QPointF left = back + QPointF(-half, half / 2);
      const QPointF right = back + QPointF(half, half / 2);
      const QPointF front = back + QPointF(0, half);
      fill(painter, polygon({left, front, front + down, left + down}), orange);
      fill(painter, polygon({front, right, right + down, front + down}), plum);
      const QPainterPath top = polygon({back, right, front, left});
      const QColor colour = row == 0 && column == 0 ? red : straw;
      fill(painter, top, colour);
      // Over its edge too, so that nothing shines through between two of one height.
      painter.strokePath(top, colour);
    }
  }
}

// A quarter circle that grows from a corner of its tile.
struct QuarterTile {
  int quarterTurns;
  bool isInverted = false;
};

void paintQuarterTiles(QPainter& painter) {
  constexpr int tiles = 4;
  constexpr QuarterTile pattern[tiles][tiles] = {{{2}, {3, true}, {2}, {0}},
                                                 {{1}, {2, true}, {3}, {1, true}},
                                                 {{2, true}, {1}, {0}, {3, true}},
                                                 {{0}, {3, true}, {2}, {1, true}}};
  constexpr double side = pictureSide / tiles;
  constexpr double core = 0.45 * side;
  fillGround(painter, aubergine);
  for (int row = 0; row < tiles; ++row) {
    for (int column = 0; column < tiles; ++column) {
      const auto [quarterTurns, isInverted] = pattern[row][column];
      const QPointF corner(-side / 2, -side / 2);
      painter.save();
      painter.translate((column + 0.5) * side, (row + 0.5) * side);
      painter.rotate(quarterTurns * 90);
      if (isInverted) {
        painter.fillRect(squareAround(QPointF(), side / 2), QColor(orange));
      }
      fill(painter, ringSector(corner, 0, side, 0, 90), isInverted ? aubergine : amber);
      fill(painter, ringSector(corner, 0, core, 0, 90), isInverted ? straw : red);
      painter.restore();
    }
  }
}

// Rows of five beats, each row two beats late.
void paintSyncopatedDots(QPainter& painter) {
  constexpr std::array radii = {0.53, 0.13, 0.13, 0.34, 0.13};
  constexpr std::array<QRgb, radii.size()> colours = {aubergine, aubergine, aubergine, red, aubergine};
  constexpr int dots = 7;
  constexpr int late = 2;
  constexpr double pitch = 130;
  const QPointF lastDot(dots - 1, dots - 1);
  fillGround(painter, amber);
  for (int row = 0; row < dots; ++row) {
    for (int column = 0; column < dots; ++column) {
      const std::size_t beat = (column + late * row + 1) % radii.size();
      const QPointF centre = middle + pitch * (QPointF(column, row) - lastDot / 2);
      fill(painter, circle(centre, radii[beat] * pitch), colours[beat]);
    }
  }
}

QPainterPath upwardArrow(double head, double length) {
  const double shaft = head / 2;
  return polygon({QPointF(0, 0), QPointF(head, head), QPointF(shaft, head), QPointF(shaft, length),
                  QPointF(-shaft, length), QPointF(-shaft, head), QPointF(-head, head)});
}

// The ground between the upward arrows is downward ones.
void paintInterlockingArrows(QPainter& painter) {
  constexpr int columns = 3;
  constexpr std::array<QRgb, columns> colours = {orange, amber, orange};
  constexpr double head = pictureSide / (2 * columns);
  constexpr double length = pictureSide / 2;
  const QPainterPath up = upwardArrow(head, length);
  const QPainterPath down = QTransform::fromScale(1, -1).map(up);
  fillGround(painter, aubergine);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < columns; ++column) {
      const bool isAccent = row == 1 && column == 1;
      fill(painter, up.translated((2 * column + 1) * head, (row - 0.5) * length),
           isAccent ? straw : colours[column]);
    }
  }
  fill(painter, down.translated(4 * head, 1.5 * length + head), red);
}

void paintSplitDisc(QPainter& painter) {
  constexpr int rings = 8;
  constexpr double width = 57;
  fillGround(painter, aubergine);
  painter.translate(middle);
  painter.rotate(-45);
  for (int ring = rings - 1; ring >= 0; --ring) {
    const QColor colour = ring == 0 ? QColor(straw) : mix(amber, red, (ring - 1) / (rings - 2.0));
    fill(painter, ringSector(QPointF(), ring * width, (ring + 1) * width, ring % 2 == 0 ? 0 : 180, 180),
         colour);
  }
}

void paintRacingLanes(QPainter& painter) {
  constexpr int lanes = 6;
  constexpr std::array<QRgb, lanes> colours = {red, orange, amber, orange, amber, orange};
  constexpr double lane = 92;
  constexpr double line = 16;
  constexpr double innermost = 120;
  constexpr int leader = 3;
  const QPointF bend(250, 250);
  fillGround(painter, aubergine);
  for (int i = 0; i < lanes; ++i) {
    const double inner = innermost + i * lane;
    const double outer = inner + lane - line;
    QPainterPath path(QPointF(0, bend.y() + outer));
    path.arcTo(squareAround(bend, outer), -90, 90);
    path.lineTo(bend.x() + outer, 0);
    path.lineTo(bend.x() + inner, 0);
    path.arcTo(squareAround(bend, inner), 0, -90);
    path.lineTo(0, bend.y() + inner);
    path.closeSubpath();
    fill(painter, path, colours[i]);
    if (i == leader) {
      fill(painter, ringSector(bend, inner - line, outer + line, 20, 34), aubergine);
      fill(painter, ringSector(bend, inner, outer, 22, 30), straw);
    }
  }
}

void paintMetronome(QPainter& painter) {
  constexpr int places = 9;
  constexpr int now = 7;
  constexpr double between = 9;
  constexpr double width = 5;
  constexpr double length = 720;
  const QPointF pivot(500, 800);
  const QPointF top(500, 230);
  const QPointF foot(500, 910);
  constexpr double topHalfWidth = 90;
  constexpr double footHalfWidth = 270;
  const auto angle = [](int place) { return -90 + (place - (places - 1) / 2.0) * between; };
  fillGround(painter, aubergine);
  for (int place = 0; place < places; ++place) {
    fill(painter, ringSector(pivot, 0, length, angle(place) - width / 2, width), plum);
  }
  fill(painter, polygon({top, top - QPointF(topHalfWidth, 0), foot - QPointF(footHalfWidth, 0), foot}),
       amber);
  fill(painter, polygon({top, top + QPointF(topHalfWidth, 0), foot + QPointF(footHalfWidth, 0), foot}),
       orange);
  fill(painter, ringSector(pivot, 0, length, angle(now) - width / 2, width), straw);
  fill(painter, circle(polar(pivot, 500, angle(now)), 66), red);
  fill(painter, circle(pivot, 40), aubergine);
}

void paintSwellingChecks(QPainter& painter) {
  constexpr int checks = 11;
  constexpr int widest = 6;
  std::array<double, checks + 1> edges{};
  for (int i = 0; i < checks; ++i) {
    edges[i + 1] = edges[i] + 0.35 + std::exp(-std::pow((i - widest) / 2.2, 2));
  }
  const double scale = pictureSide / edges.back();
  fillGround(painter, aubergine);
  for (int row = 0; row < checks; ++row) {
    for (int column = 0; column < checks; ++column) {
      if ((row + column) % 2 == 0) {
        const QPointF topLeft(edges[column] * scale, edges[row] * scale);
        const QPointF bottomRight(edges[column + 1] * scale, edges[row + 1] * scale);
        const bool isAccent = row == widest && column == widest;
        painter.fillRect(QRectF(topLeft, bottomRight), QColor(isAccent ? red : amber));
      }
    }
  }
}

}  // namespace

void TempoCover::paint(QPainter& painter, int number) {
  constexpr void (*pictures[])(QPainter&) = {
      paintPulsingStripes, paintGrowingChevrons,    paintSteppedBlocks, paintQuarterTiles,
      paintSyncopatedDots, paintInterlockingArrows, paintSplitDisc,     paintRacingLanes,
      paintMetronome,      paintSwellingChecks,
  };
  pictures[number - 1](painter);
}

}  // namespace mireval
