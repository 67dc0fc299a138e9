#include "CreativeCover.h"

#include "CutPaper.h"
#include "SmoothCurve.h"

#include <QPainter>

#include <array>
#include <cmath>
#include <numbers>

namespace mireval {
namespace {

constexpr QRgb cream = 0xfffff3de;
constexpr QRgb blush = 0xffffe0d3;
constexpr QRgb butter = 0xffffeab8;
constexpr QRgb honey = 0xffffd785;
constexpr QRgb coral = 0xffff6f7d;
constexpr QRgb pink = 0xffff9fb2;
constexpr QRgb magenta = 0xffe0317f;
constexpr QRgb saffron = 0xffffb52e;
constexpr QRgb mint = 0xff7fdcbd;
constexpr QRgb turquoise = 0xff3fc3c6;
constexpr QRgb sky = 0xff8fb4ff;
constexpr QRgb ultramarine = 0xff3346c8;

/// The point at `radius` from `centre`, in degrees counterclockwise from the right.
QPointF around(QPointF centre, double radius, double degrees) {
  return QLineF::fromPolar(radius, degrees).translated(centre).p2();
}

struct Sheet {
  QPainterPath shape;
  QRgb colour;
};

/// Lays sheets so that they tint each other, but not what lies below them.
void layApart(CutPaper& paper, const QList<Sheet>& sheets) {
  for (const Sheet& sheet : sheets) {
    paper.glue(sheet.shape, cream);
  }
  for (const Sheet& sheet : sheets) {
    paper.lay(sheet.shape, sheet.colour);
  }
}

void paintBranch(QPainter& painter) {
  CutPaper paper(painter, cream, 1);
  paper.lay(paper.stone({580, 430}, 335, 330), coral);
  const QPolygonF line{{210, 1030}, {270, 850}, {400, 640}, {570, 440}, {720, 300}};
  paper.lay(paper.ribbon(line, 22), ultramarine);
  const QPainterPath stem = SmoothCurve::open(line);
  constexpr int pairs = 4;
  for (int i = 0; i < pairs; ++i) {
    const double part = 0.22 + 0.2 * i;
    const QPointF joint = stem.pointAtPercent(part);
    const double along = stem.angleAtPercent(part);
    const double length = 360 - 30.0 * i;
    const QRgb left = i % 2 == 0 ? ultramarine : saffron;
    const QRgb right = i % 2 == 0 ? saffron : ultramarine;
    paper.lay(paper.leaf(joint, around(joint, length, along + 50), length * 0.46), left);
    paper.lay(paper.leaf(joint, around(joint, length, along - 50), length * 0.46), right);
  }
  const QPointF end = stem.pointAtPercent(0.97);
  paper.lay(paper.leaf(end, around(end, 260, stem.angleAtPercent(1)), 110), ultramarine);
}

void paintBlossom(QPainter& painter) {
  CutPaper paper(painter, cream, 2);
  constexpr QPointF heart(560, 460);
  paper.glue(paper.leaf({420, 560}, {-30, 760}, 190), mint);
  paper.glue(paper.leaf({470, 620}, {60, 1010}, 220), turquoise);
  paper.glue(paper.leaf({520, 620}, {370, 1080}, 190), mint);
  constexpr int petals = 7;
  QList<Sheet> corolla;
  for (int i = 0; i < petals; ++i) {
    const double angle = 14 + 360.0 * i / petals;
    corolla << Sheet{paper.petal(around(heart, 10, angle), around(heart, 425, angle), 330),
                     i % 2 == 0 ? coral : pink};
  }
  layApart(paper, corolla);
  for (int i = 0; i < petals; ++i) {
    const double angle = 40 + 360.0 * i / petals;
    paper.lay(paper.petal(around(heart, 20, angle), around(heart, 250, angle), 125), saffron);
  }
  paper.glue(paper.stone(heart, 104, 100), ultramarine);
  for (int i = 0; i < 6; ++i) {
    paper.glue(paper.stone(around(heart, 58, 20 + 60.0 * i), 14, 13), butter);
  }
}

void paintBoat(CutPaper& paper, QPointF keel) {
  const QTransform place = QTransform::fromTranslate(keel.x(), keel.y());
  paper.glue(place.map(SmoothCurve::closed({{-150, -75}, {0, -62}, {165, -82}, {95, 0}, {-90, 0}})), magenta);
  QPainterPath mainsail(QPointF(18, -95));
  mainsail.quadTo(5, -240, 28, -400);
  mainsail.quadTo(150, -270, 170, -108);
  paper.glue(place.map(mainsail), coral);
  QPainterPath jib(QPointF(-8, -92));
  jib.quadTo(-22, -200, 0, -330);
  jib.quadTo(-90, -220, -135, -98);
  paper.glue(place.map(jib), pink);
}

void paintWaves(QPainter& painter) {
  CutPaper paper(painter, cream, 3);
  paper.lay(paper.stone({300, 265}, 190, 187), saffron);
  const auto swell = [](double y, double height, double length, double phase) {
    QPolygonF line;
    for (int x = -200; x <= 1200; x += 50) {
      const double turn = 2 * std::numbers::pi * x / length + phase;
      // Leans forward, as waves do.
      line << QPointF(x, y + height * std::sin(turn + 0.5 * std::sin(turn)));
    }
    return line;
  };
  struct Wave {
    double y, height, length, phase;
    QRgb colour, stripe;
  };
  const std::array<Wave, 4> waves{{{430, 75, 900, 3.3, sky, mint},
                                   {580, 90, 760, 0.2, ultramarine, sky},
                                   {760, 85, 980, 4.4, turquoise, mint},
                                   {900, 70, 700, 2.0, coral, saffron}}};
  paintBoat(paper, {690, 500});
  for (const Wave& wave : waves) {
    QPainterPath water = SmoothCurve::open(swell(wave.y, wave.height, wave.length, wave.phase));
    water.lineTo(1200, 1100);
    water.lineTo(-200, 1100);
    paper.glue(water, wave.colour);
    paper.lay(paper.ribbon(swell(wave.y + 95, wave.height * 0.8, wave.length, wave.phase - 0.1), 46),
              wave.stripe);
  }
}

void paintCairn(QPainter& painter) {
  CutPaper paper(painter, cream, 4);
  paper.lay(paper.stone({670, 330}, 290, 286), honey);
  struct Stone {
    double x, y, halfWidth, halfHeight, angle;
    QRgb colour;
  };
  const std::array<Stone, 6> stones{{{510, 862, 300, 92, -2, ultramarine},
                                     {475, 700, 235, 92, 4, turquoise},
                                     {535, 550, 175, 82, -6, saffron},
                                     {485, 412, 140, 74, 5, coral},
                                     {525, 290, 98, 66, -8, magenta},
                                     {498, 190, 56, 50, 0, ultramarine}}};
  QList<Sheet> sheets;
  for (const Stone& stone : stones) {
    sheets << Sheet{paper.stone({stone.x, stone.y}, stone.halfWidth, stone.halfHeight, stone.angle),
                    stone.colour};
  }
  layApart(paper, sheets);
}

void paintArches(QPainter& painter) {
  CutPaper paper(painter, cream, 5);
  struct Arches {
    QPointF centre;
    double radius, from, to;
    QList<QRgb> colours;
  };
  const std::array<Arches, 3> groups{{{{360, 1010}, 590, -6, 186, {coral, saffron, pink, magenta}},
                                      {{740, -10}, 470, 174, 366, {ultramarine, turquoise, mint, sky}},
                                      {{930, 1010}, 265, -6, 186, {saffron, magenta, coral}}}};
  for (const Arches& arches : groups) {
    const int count = static_cast<int>(arches.colours.size());
    const double pitch = arches.radius / (count + 0.4);
    for (int i = 0; i < count; ++i) {
      const double radius = arches.radius - pitch * (i + 0.5);
      QPolygonF line;
      for (int step = 0; step <= 8; ++step) {
        line << around(arches.centre, radius, arches.from + (arches.to - arches.from) * step / 8);
      }
      paper.lay(paper.ribbon(line, pitch * 0.84), arches.colours[i]);
    }
  }
  paper.lay(paper.stone({140, 175}, 82, 78), magenta);
}

void paintFruit(QPainter& painter) {
  CutPaper paper(painter, cream, 6);
  paper.lay(paper.leaf({560, 330}, {960, 60}, 210), mint);
  paper.lay(paper.leaf({520, 300}, {640, -60}, 170), turquoise);
  constexpr QPointF core(360, 430);
  constexpr double tilt = 24;
  paper.glue(paper.stone(core, 300, 380, tilt), coral);
  paper.glue(paper.stone(core, 250, 330, tilt), saffron);
  paper.glue(paper.stone(core, 96, 190, tilt), butter);
  const QTransform inCore = QTransform::fromTranslate(core.x(), core.y()).rotate(tilt);
  for (int i = 0; i < 7; ++i) {
    const QPointF seed(i % 2 == 0 ? 24 : -24, 43 * (i - 3));
    paper.glue(paper.stone(inCore.map(seed), 18, 27, tilt), ultramarine);
  }
  constexpr QPointF slice(735, 735);
  paper.lay(paper.stone(slice, 245, 242), magenta);
  paper.glue(paper.stone(slice, 208, 206), blush);
  for (int i = 0; i < 8; ++i) {
    paper.glue(paper.petal(around(slice, 22, 10 + 45.0 * i), around(slice, 184, 10 + 45.0 * i), 112), coral);
  }
}

void paintTulips(QPainter& painter) {
  CutPaper paper(painter, blush, 7);
  struct Tulip {
    QPointF foot, head;
    double size;
    QRgb outer, inner;
  };
  const std::array<Tulip, 3> tulips{{{{400, 1040}, {235, 560}, 300, pink, coral},
                                     {{500, 1040}, {520, 430}, 340, coral, magenta},
                                     {{600, 1040}, {790, 620}, 280, saffron, coral}}};
  paper.lay(paper.leaf({430, 1060}, {60, 640}, 170), mint);
  paper.lay(paper.leaf({580, 1060}, {900, 700}, 160), mint);
  for (const auto& [foot, head, size, outer, inner] : tulips) {
    const double lean = (head.x() - foot.x()) * 0.35;
    paper.lay(paper.ribbon({foot, (foot + head) / 2 - QPointF(lean * 0.3, 0), head - QPointF(0, 40)}, 30),
              turquoise);
    QList<Sheet> cup;
    for (const double side : {-1.0, 1.0}) {
      const QPointF tip = head + QPointF(side * size * 0.36 + lean * 0.5, -size);
      cup << Sheet{paper.leaf(head, tip, size * 0.62), outer};
    }
    cup << Sheet{paper.leaf(head, head + QPointF(lean * 0.5, -size * 0.95), size * 0.6), inner};
    layApart(paper, cup);
  }
  paper.lay(paper.leaf({470, 1080}, {330, 640}, 150), turquoise);
  paper.lay(paper.leaf({540, 1080}, {670, 690}, 150), turquoise);
}

void paintButterfly(QPainter& painter) {
  CutPaper paper(painter, cream, 8);
  const QTransform tilt = QTransform::fromTranslate(505, 525).rotate(-20).scale(0.96, 0.96);
  for (const double side : {-1.0, 1.0}) {
    const QTransform place = QTransform::fromScale(side, 1) * tilt;
    paper.lay(place.map(SmoothCurve::closed({{15, -20},
                                             {80, -190},
                                             {230, -350},
                                             {390, -370},
                                             {425, -250},
                                             {380, -90},
                                             {270, 20},
                                             {120, 50}})),
              side > 0 ? coral : magenta);
    paper.lay(
        place.map(SmoothCurve::closed(
            {{15, 0}, {150, -40}, {290, 20}, {345, 150}, {290, 290}, {190, 350}, {90, 250}, {35, 110}})),
        saffron);
    paper.glue(place.map(paper.petal({130, -85}, {345, -300}, 95)), saffron);
    paper.glue(place.map(paper.petal({95, 95}, {262, 245}, 80)), coral);
    paper.glue(place.map(paper.ribbon({{6, -130}, {40, -250}, {105, -330}}, 13)), ultramarine);
  }
  paper.glue(tilt.map(paper.leaf({0, -185}, {0, 290}, 95)), ultramarine);
}

void paintLotus(QPainter& painter) {
  CutPaper paper(painter, blush, 9);
  constexpr QPointF root(500, 770);
  paper.glue(paper.stone({705, 320}, 245, 241), honey);
  const auto water = [&](double y, double width, QRgb colour) {
    const QPolygonF line{{-50, y},      {150, y - 22}, {350, y + 18}, {550, y - 16},
                         {750, y + 20}, {950, y - 14}, {1050, y}};
    paper.lay(paper.ribbon(line, width), colour);
  };
  water(790, 110, turquoise);
  water(860, 110, ultramarine);
  water(970, 170, turquoise);
  QList<Sheet> petals;
  struct Petal {
    double angle, length, width;
    QRgb colour;
  };
  for (const auto& [angle, length, width, colour] : {Petal{164, 430, 170, coral},
                                                     {16, 430, 170, coral},
                                                     {138, 500, 200, pink},
                                                     {42, 500, 200, pink},
                                                     {115, 560, 210, coral},
                                                     {65, 560, 210, coral},
                                                     {90, 620, 230, magenta}}) {
    petals << Sheet{paper.leaf(root, around(root, length, angle), width), colour};
  }
  layApart(paper, petals);
}

void paintWindow(QPainter& painter) {
  CutPaper paper(painter, cream, 10);
  QPainterPath arch(QPointF(158, 932));
  arch.lineTo(150, 430);
  arch.cubicTo(146, 190, 310, 72, 500, 75);
  arch.cubicTo(690, 72, 854, 190, 850, 430);
  arch.lineTo(842, 925);
  paper.glue(arch, ultramarine);
  paper.glue(paper.stone({655, 275}, 105, 103), saffron);
  constexpr QPointF soil(450, 760);
  struct Leaf {
    double angle, length, width;
    QRgb colour;
  };
  for (const auto& [angle, length, width, colour] : {Leaf{146, 305, 125, turquoise},
                                                     {28, 380, 140, turquoise},
                                                     {122, 470, 150, mint},
                                                     {52, 410, 150, mint},
                                                     {92, 540, 150, pink}}) {
    paper.glue(paper.leaf(soil, around(soil, length, angle), width), colour);
  }
  paper.glue(
      SmoothCurve::closed(
          {{300, 745}, {450, 735}, {600, 748}, {586, 850}, {556, 945}, {450, 966}, {344, 943}, {314, 850}}),
      coral);
}

}  // namespace

void CreativeCover::paint(QPainter& painter, int number) {
  constexpr std::array pictures{paintBranch, paintBlossom, paintWaves,     paintCairn, paintArches,
                                paintFruit,  paintTulips,  paintButterfly, paintLotus, paintWindow};
  pictures.at(number - 1)(painter);
}

}  // namespace mireval
