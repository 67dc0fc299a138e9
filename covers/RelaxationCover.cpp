#include "RelaxationCover.h"

#include "CoverRandom.h"
#include "GeometricShapes.h"
#include "Scenery.h"
#include "SmoothCurve.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace mireval {
namespace {

constexpr QRgb night = 0xff0d2233;
constexpr QRgb ink = 0xff143544;
constexpr QRgb deep = 0xff14505a;
constexpr QRgb teal = 0xff3fb8a9;
constexpr QRgb haze = 0xffc9e6dc;
constexpr QRgb pale = 0xffeaf4ec;
constexpr QRgb slate = 0xff4a6f8a;
constexpr QRgb drizzle = 0xff8fb0c0;
constexpr QRgb sand = 0xfff6dcb0;
constexpr QRgb peach = 0xfffbb68c;
constexpr QRgb rose = 0xffee8f86;

/// The colour with that part of its opacity.
QColor sheer(QColor colour, double part) {
  colour.setAlpha(qRound(colour.alpha() * part));
  return colour;
}

/// The light of a lamp, the sun or the moon on water: strips that widen towards the viewer, as their gaps do.
void paintGlitter(Scenery& scenery, CoverRandom& random, QLineF path, double farWidth, double nearWidth,
                  QColor colour) {
  double y = path.y1();
  while (y < path.y2()) {
    const double nearness = (y - path.y1()) / (path.y2() - path.y1());
    const double step = 9 + 27 * nearness;
    const double width = (farWidth + (nearWidth - farWidth) * nearness) * random.between(0.55, 1);
    const double x = path.pointAt(nearness).x() + random.between(-0.18, 0.18) * width;
    scenery.gleam({x, y}, width, step * 0.3, sheer(colour, 1 - 0.75 * nearness));
    y += step;
  }
}

void paintLowSun(QPainter& painter) {
  Scenery scenery(painter);
  CoverRandom random(1);
  constexpr double horizon = 610;
  scenery.air({{0, 0xff4fa7a6}, {0.3, 0xff9fd3c4}, {0.61, sand}, {1, sand}});
  scenery.glow({500, horizon}, 520, sheer(peach, 0.75));
  scenery.disc({500, horizon - 30}, 215, 0xffffd9a0, rose);
  scenery.gleam({215, 330}, 260, 16, sheer(pale, 0.5));
  scenery.gleam({800, 265}, 220, 12, sheer(pale, 0.5));
  scenery.gleam({660, 420}, 250, 12, sheer(sand, 0.6));
  scenery.land({{0, 545}, {90, 522}, {190, 560}, {290, 600}, {400, horizon + 10}, {1000, horizon + 10}},
               0xff5f9ea3, 0xff9cc7ba, 90);
  scenery.water(horizon, 1000, 0xff53aaa4, 0xff0f4652);
  paintGlitter(scenery, random, {500, horizon + 8, 500, 960}, 190, 330, QColor(0xffffc79a));
}

void paintHills(QPainter& painter) {
  Scenery scenery(painter);
  scenery.air({{0, 0xff8fc7c0}, {0.32, 0xfffbe6c8}, {1, haze}});
  scenery.glow({665, 225}, 300, sheer(peach, 0.6));
  scenery.disc({665, 225}, 78, 0xfffff3d8, peach);
  constexpr int count = 7;
  const std::array<QPolygonF, count> skylines{
      QPolygonF{{0, 330}, {180, 290}, {330, 345}, {500, 380}, {640, 350}, {830, 310}, {1000, 345}},
      QPolygonF{{0, 255}, {140, 300}, {300, 415}, {480, 455}, {690, 430}, {860, 445}, {1000, 420}},
      QPolygonF{{0, 490}, {200, 505}, {420, 525}, {600, 490}, {790, 400}, {920, 385}, {1000, 405}},
      QPolygonF{{0, 470}, {120, 460}, {290, 520}, {480, 610}, {660, 625}, {840, 600}, {1000, 610}},
      QPolygonF{{0, 690}, {210, 705}, {420, 715}, {610, 660}, {800, 560}, {920, 530}, {1000, 540}},
      QPolygonF{{0, 650}, {130, 655}, {330, 740}, {540, 815}, {760, 830}, {1000, 800}},
      QPolygonF{{0, 905}, {260, 930}, {520, 900}, {740, 800}, {900, 745}, {1000, 740}},
  };
  for (int i = 0; i < count; ++i) {
    const double nearness = i / (count - 1.0);
    const QColor colour =
        nearness < 0.5 ? mix(0xffa5d1c6, teal, nearness * 2) : mix(teal, ink, nearness * 2 - 1);
    scenery.land(skylines[i], colour, mix(pale, deep, nearness), 300);
  }
}

void paintRain(QPainter& painter) {
  Scenery scenery(painter);
  CoverRandom random(3);
  constexpr double horizon = 820;
  constexpr QPointF fall(-0.32, 1);
  scenery.air({{0, slate}, {0.35, drizzle}, {0.58, 0xfff3e0c0}, {0.82, peach}, {1, peach}});
  scenery.glow({190, horizon}, 420, sheer(0xfffff3d8, 0.9));
  scenery.land({{0, horizon}, {330, horizon}, {520, 800}, {700, 735}, {850, 750}, {1000, 700}}, 0xff7fa3ac,
               0xffb9cdc4, 120);
  scenery.water(horizon, 1000, 0xff7fb6ae, 0xff143f4c);
  for (int x = 300; x < 1290; x += 14) {
    const QPointF start(x, 240);
    // Dense and thin veils take turns.
    const double density = 0.5 + 0.5 * std::sin(x / 105.0 - 4.43);
    const QPointF end = start + fall * (500 + 130 * density + random.between(-40, 40));
    QLinearGradient thread(start, end);
    thread.setColorAt(0, sheer(0xff2f5a75, 0.9));
    thread.setColorAt(0.6, sheer(0xff3f7088, 0.3 + 0.5 * density));
    thread.setColorAt(1, sheer(0xff3f7088, 0));
    painter.setPen(QPen(thread, 3 + 4 * density));
    painter.drawLine(start, end);
  }
  scenery.ceiling({{0, 235}, {120, 285}, {270, 270}, {430, 350}, {640, 385}, {820, 345}, {1000, 375}},
                  0xff3f6580, 0xff6f95a9, 260);
  scenery.ceiling({{0, 170}, {160, 205}, {330, 185}, {520, 270}, {720, 285}, {880, 235}, {1000, 265}},
                  0xff28506a, 0xff456d87, 240);
  scenery.ceiling({{0, 60}, {190, 120}, {390, 95}, {600, 165}, {800, 150}, {1000, 110}}, 0xff17384e,
                  0xff2a536c, 170);
}

void paintDunes(QPainter& painter) {
  Scenery scenery(painter);
  scenery.air({{0, 0xff5fb0ae}, {0.3, haze}, {0.55, 0xfff9e3c4}, {1, sand}});
  scenery.land({{0, 400}, {180, 350}, {360, 410}, {560, 380}, {780, 440}, {1000, 370}}, 0xffa2cdc3,
               0xfff2dcb8, 190);
  scenery.land({{0, 500}, {150, 545}, {400, 500}, {640, 560}, {1000, 490}}, 0xffe6c99d, 0xfff8dfb6, 200);
  // The big dune: one edge parts its lit side from its shaded one.
  constexpr QPointF peak(625, 290);
  const QPolygonF edge{peak,       {650, 380}, {585, 490}, {455, 590},
                       {400, 700}, {470, 820}, {620, 930}, {700, 1010}};
  QPainterPath lit = SmoothCurve::open({{-20, 700}, {180, 640}, {370, 520}, {520, 370}, peak});
  lit.connectPath(SmoothCurve::open(edge));
  lit.lineTo(-20, 1010);
  scenery.shape(lit, 0xfffff0d0, 0xffee9f7a);
  QPainterPath shaded = SmoothCurve::open(edge);
  shaded.lineTo(1010, 1010);
  shaded.connectPath(SmoothCurve::open({{1010, 560}, {900, 520}, {770, 420}, {690, 325}, peak}));
  scenery.shape(shaded, 0xff2a7a7f, 0xff6fbcae);
  scenery.land({{0, 850}, {200, 880}, {450, 960}, {640, 965}, {830, 900}, {1000, 870}}, 0xff1d5f68, ink, 200);
}

struct Puff {
  double x, y, radius;
};

/// Round puffs from left to right, filled down to `base`.
QPainterPath cloud(const QList<Puff>& puffs, double base) {
  QPainterPath outline;
  QPolygonF body{{puffs.first().x, base}};
  for (const Puff& puff : puffs) {
    QPainterPath circle;
    circle.addEllipse(QPointF(puff.x, puff.y), puff.radius, puff.radius);
    outline = outline.united(circle);
    body << QPointF(puff.x, puff.y);
  }
  body << QPointF(puffs.last().x, base);
  QPainterPath filling;
  filling.addPolygon(body);
  filling.closeSubpath();
  return outline.united(filling);
}

void paintCloudBanks(QPainter& painter) {
  Scenery scenery(painter);
  scenery.air({{0, 0xff7cc6bd}, {0.5, 0xffd9ece0}, {1, pale}});
  scenery.glow({340, 400}, 420, sheer(peach, 0.6));
  scenery.disc({340, 390}, 175, 0xffffe3b5, 0xfff59a80);
  scenery.shape(
      cloud({{590, 470, 60}, {680, 400, 95}, {800, 350, 125}, {930, 400, 110}, {1050, 380, 100}}, 1000),
      0xfffffcf4, 0xfff3dcc6);
  scenery.shape(cloud({{-40, 520, 120},
                       {120, 560, 110},
                       {260, 600, 90},
                       {420, 580, 110},
                       {560, 605, 95},
                       {700, 600, 100},
                       {860, 640, 90},
                       {1000, 600, 110}},
                      830),
                0xffdff0e5, 0xff6cb9b0);
  scenery.shape(cloud({{-20, 720, 90},
                       {110, 760, 80},
                       {270, 740, 120},
                       {450, 790, 90},
                       {610, 770, 110},
                       {780, 740, 130},
                       {960, 760, 110}},
                      960),
                0xffbfe2d6, 0xff2f8a8b);
  scenery.shape(cloud({{0, 860, 110},
                       {180, 910, 90},
                       {340, 930, 80},
                       {500, 900, 120},
                       {690, 940, 90},
                       {850, 910, 100},
                       {1010, 860, 120}},
                      1100),
                0xff5aa9a4, 0xff145661);
}

/// A sailing boat at anchor, and its mirror image.
void paintBoat(Scenery& scenery, QPointF waterline, double size) {
  QPainterPath hull = SmoothCurve::open({{-1.1, -0.24}, {-0.9, 0}, {0, 0.05}, {0.8, 0.02}, {1.25, -0.3}});
  hull.quadTo(0.1, -0.16, -1.1, -0.24);
  QPainterPath mast;
  mast.addPolygon(QPolygonF{{-0.035, -0.1}, {0.035, -0.1}, {0.015, -2.7}, {-0.015, -2.7}});
  const QPainterPath sail = SmoothCurve::closed({{0.02, -0.5}, {-0.5, -0.58}, {-0.98, -0.5}, {-0.5, -0.44}});
  const QTransform upright = QTransform::fromTranslate(waterline.x(), waterline.y()).scale(size, size);
  const QTransform mirrored = QTransform::fromScale(1, -0.7) * upright;
  for (const QPainterPath& part : {hull, mast, sail}) {
    scenery.shape(mirrored.map(part), sheer(night, 0.5), sheer(night, 0.3));
    scenery.shape(upright.map(part), 0xff071827, 0xff071827);
  }
}

void paintHarbour(QPainter& painter) {
  Scenery scenery(painter);
  CoverRandom random(6);
  constexpr double shore = 520;
  scenery.air({{0, 0xff0c2032}, {0.28, 0xff1f5064}, {0.52, 0xff63a7a3}, {1, night}});
  for (int i = 0; i < 22; ++i) {
    // Braces, unlike calls, evaluate in order with every compiler.
    const QPointF star{random.between(30, 970), random.between(25, 230)};
    scenery.disc(star, random.between(1.6, 3.4), pale, pale);
  }
  scenery.land(
      {{0, 270}, {120, 235}, {250, 270}, {430, 400}, {600, 450}, {760, 430}, {900, 385}, {1000, 400}},
      0xff235262, 0xff3a7c82, 300);
  scenery.land({{0, 400}, {130, 390}, {300, 455}, {520, 500}, {700, 505}, {860, 470}, {1000, 455}},
               0xff0f2d3e, 0xff17404f, 130);
  for (const QPointF window : {QPointF(58, 348), {128, 372}, {96, 440}, {160, 425}, {296, 432}, {965, 474}}) {
    scenery.disc(window, 4.5, sand, peach);
  }
  scenery.water(shore, 1000, 0xff3f8388, 0xff0a1b2b);
  struct Lamp {
    double x, size;
    QRgb colour;
  };
  const std::array<Lamp, 6> lamps{{{75, 13, peach},
                                   {190, 10, sand},
                                   {325, 21, sand},
                                   {488, 12, peach},
                                   {800, 11, sand},
                                   {925, 17, peach}}};
  for (const auto& [x, size, colour] : lamps) {
    const double y = shore - size - 4;
    scenery.glow({x, y}, size * 8, sheer(sand, 0.45));
    scenery.disc({x, y}, size, 0xfffff3d8, colour);
    paintGlitter(scenery, random, {x, shore + 8, x, shore + 20 * size + 50}, size * 1.6, size * 3.6,
                 sheer(colour, 0.95));
  }
  paintBoat(scenery, {665, 800}, 185);
  paintBoat(scenery, {225, 655}, 78);
}

/// The edge of a wave on the beach; the sea is to its upper right. `away` is how far the wave stays behind
/// the tide.
QPolygonF waterline(double away, double phase) {
  QPolygonF line;
  for (int i = -1; i <= 11; ++i) {
    const QPointF shore(-100 + 110 * i, 330 + 88.0 * i - 120 * std::sin(i * 0.42));
    const double swell = 34 * std::sin(i * 1.35 + phase) + 14 * std::sin(i * 2.3 + 2 * phase);
    line << shore + QPointF(0.62, -0.78) * (away + swell);
  }
  return line;
}

void paintTide(QPainter& painter) {
  Scenery scenery(painter);
  CoverRandom random(7);
  scenery.air({{0, 0xfff3d2a4}, {1, 0xfffdeccf}});
  for (int ripple = 1; ripple <= 4; ++ripple) {
    painter.strokePath(SmoothCurve::open(waterline(-72.0 * ripple, 2.5)),
                       QPen(sheer(0xffe5bf8a, 0.8 - 0.15 * ripple), 9 - ripple));
  }
  QPainterPath wetSand = SmoothCurve::open(waterline(0, 2.5));
  wetSand.lineTo(1300, -300);
  wetSand.lineTo(-300, -300);
  painter.fillPath(wetSand, QColor(0xffe6c293));
  constexpr int count = 5;
  constexpr std::array<QRgb, count> depths{0xffbfe0d2, 0xff8fcfc2, 0xff55b5ab, 0xff2b8f90, 0xff17626d};
  for (int i = 0; i < count; ++i) {
    const QPainterPath foam = SmoothCurve::open(waterline(55 + 118.0 * i, random.between(0, 6)));
    QPainterPath water = foam;
    water.lineTo(1300, -300);
    water.lineTo(-300, -300);
    scenery.shape(water, depths[i], mix(depths[i], haze, 0.3));
    painter.strokePath(foam, QPen(sheer(0xfffffaf0, 0.82 - 0.13 * i), 13 - 2.0 * i));
  }
}

/// A blade of grass that the wind bends to the right.
QPainterPath blade(QPointF root, double height, double lean, double width) {
  const QPointF tip = root + QPointF(lean, -height);
  const QPointF bend = root + QPointF(lean * 0.12, -height * 0.62);
  QPainterPath path(root - QPointF(width / 2, 0));
  path.quadTo(bend - QPointF(width / 2, 0), tip);
  path.quadTo(bend + QPointF(width / 2, 0), root + QPointF(width / 2, 0));
  return path;
}

void paintDandelion(QPainter& painter, QPointF centre, double radius) {
  Scenery scenery(painter);
  painter.fillPath(blade({centre.x() - 60, 1010}, 1010 - centre.y(), 60, 16), QColor(deep));
  scenery.glow(centre, radius * 1.35, sheer(pale, 0.75));
  constexpr int seeds = 44;
  for (int i = 0; i < seeds; ++i) {
    // Every third seed points more towards the viewer and looks shorter.
    const double length = radius * (i % 3 == 0 ? 0.62 : 1);
    const QLineF stalk = QLineF::fromPolar(length, 360.0 * i / seeds).translated(centre);
    painter.setPen(QPen(QColor(0xfffffdf5), 2.6));
    painter.drawLine(stalk);
    scenery.disc(stalk.p2(), radius * 0.05, 0xfffffdf5, 0xfffffdf5);
  }
  scenery.disc(centre, radius * 0.13, peach, rose);
}

void paintMeadow(QPainter& painter) {
  Scenery scenery(painter);
  CoverRandom random(8);
  scenery.air({{0, 0xff3c9c98}, {0.35, 0xff8accc0}, {0.62, sand}, {1, haze}});
  scenery.glow({760, 560}, 420, sheer(peach, 0.8));
  scenery.land({{0, 560}, {200, 520}, {430, 570}, {650, 590}, {1000, 540}}, 0xff8fc9bc, 0xffcde6d6, 160);
  scenery.land({{0, 650}, {300, 670}, {600, 640}, {1000, 680}}, 0xff62b3a7, 0xff9ad2c4, 200);
  scenery.land({{0, 790}, {300, 750}, {620, 780}, {1000, 740}}, 0xff3f9d92, 0xff1b6a6c, 240);
  struct Row {
    int count;
    double root, height;
    QRgb colour;
  };
  for (const auto& [count, root, height, colour] :
       {Row{48, 860, 130, 0xff55aa9d}, Row{36, 950, 210, 0xff278280}, Row{26, 1040, 330, deep}}) {
    for (int i = 0; i < count; ++i) {
      const double tall = height * random.between(0.6, 1.1);
      const double x = -60 + 1080.0 * (i + random.between(0.1, 0.9)) / count;
      painter.fillPath(blade({x, root}, tall, tall * random.between(0.3, 0.55), 8 + height * 0.05),
                       QColor(colour));
    }
    const double ground = root - 0.34 * height;
    scenery.land({{0, ground}, {350, ground + 12}, {680, ground - 6}, {1000, ground + 8}}, colour, colour, 1);
  }
  paintDandelion(painter, {330, 330}, 165);
  paintDandelion(painter, {600, 640}, 78);
}

void paintMoonLake(QPainter& painter) {
  Scenery scenery(painter);
  CoverRandom random(9);
  constexpr double shore = 600;
  scenery.air({{0, night}, {0.35, 0xff27506a}, {0.6, 0xff7aa9b0}, {1, night}});
  scenery.glow({640, 265}, 380, sheer(pale, 0.45));
  scenery.disc({640, 265}, 128, 0xfffff6df, 0xffe9e3c8);
  const QPolygonF far{{0, 470},   {120, 400}, {220, 430}, {330, 520}, {450, 575},
                      {600, 585}, {740, 540}, {860, 420}, {930, 390}, {1000, 420}};
  const QPolygonF near{{0, 340},     {70, 310},    {160, 420}, {270, 540}, {360, 590},
                       {420, shore}, {700, shore}, {790, 570}, {900, 500}, {1000, 470}};
  const auto paintShores = [&] {
    scenery.land(far, 0xff33647a, 0xff84adb3, 230);
    scenery.land(near, 0xff10293b, 0xff27566a, 330);
  };
  paintShores();
  painter.save();
  painter.setClipRect(QRectF(0, shore, 1000, 400));
  painter.translate(0, 2 * shore);
  painter.scale(1, -1);
  scenery.air({{0, night}, {0.3, 0xff1d4159}, {0.6, 0xff5d919c}, {1, night}});
  paintShores();
  painter.restore();
  scenery.water(shore, 1000, sheer(0xff2c5f70, 0.2), sheer(0xff0a1c2c, 0.8));
  scenery.gleam({500, shore}, 520, 3, sheer(pale, 0.5));
  paintGlitter(scenery, random, {640, shore + 14, 640, 985}, 70, 165, QColor(0xfff7efd6));
}

void paintFirstLight(QPainter& painter) {
  Scenery scenery(painter);
  constexpr QPointF source(620, 700);
  scenery.air({{0, 0xff17475a}, {1, 0xff17475a}});
  constexpr int count = 7;
  constexpr std::array<QRgb, count> rings{0xff236273, 0xff388590, 0xff64aaa8, 0xffa3cfc0,
                                          0xffe8dfc0, 0xfffcc9a0, 0xfff8a58a};
  for (int i = 0; i < count; ++i) {
    scenery.disc(source, 720 - 96.0 * i, rings[i], mix(rings[i], sand, 0.35));
  }
  scenery.land({{0, 700}, {180, 680}, {400, 720}, {640, 705}, {840, 680}, {1000, 700}}, 0xff4b8f95,
               0xfff3dcc2, 170);
  const QColor tree(0xff14404f);
  QPainterPath trunk(QPointF(234, 800));
  trunk.quadTo(250, 700, 246, 620);
  trunk.lineTo(258, 620);
  trunk.quadTo(258, 700, 276, 810);
  painter.fillPath(trunk, tree);
  painter.fillPath(SmoothCurve::closed({{250, 470},
                                        {320, 500},
                                        {365, 560},
                                        {350, 630},
                                        {290, 655},
                                        {215, 655},
                                        {150, 630},
                                        {135, 565},
                                        {180, 500}}),
                   tree);
  scenery.land({{0, 770}, {170, 760}, {330, 790}, {560, 850}, {800, 860}, {1000, 820}}, 0xff14404f,
               0xff0c2737, 230);
  scenery.land({{0, 960}, {300, 965}, {600, 930}, {820, 880}, {1000, 870}}, 0xff0b2232, night, 130);
}

}  // namespace

void RelaxationCover::paint(QPainter& painter, int number) {
  constexpr std::array pictures{paintLowSun,  paintHills, paintRain,   paintDunes,    paintCloudBanks,
                                paintHarbour, paintTide,  paintMeadow, paintMoonLake, paintFirstLight};
  pictures.at(number - 1)(painter);
}

}  // namespace mireval
