#include "ui/ContinuousRectangle.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct Cubic {
  std::array<QPointF, 4> points;

  /// At its begin or its end.
  double curvature(bool atEnd) const {
    const auto& [p0, p1, p2, p3] = points;
    const QPointF first = atEnd ? p3 - p2 : p1 - p0;
    const QPointF second = p2 - p1;
    const double cross = std::abs(first.x() * second.y() - first.y() * second.x());
    return 2.0 / 3 * cross / std::pow(std::hypot(first.x(), first.y()), 3);
  }
};

std::vector<Cubic> curvesOf(const QPainterPath& path) {
  std::vector<Cubic> curves;
  for (int index = 0; index < path.elementCount(); ++index) {
    if (path.elementAt(index).isCurveTo()) {
      curves.push_back({{QPointF(path.elementAt(index - 1)), QPointF(path.elementAt(index)),
                         QPointF(path.elementAt(index + 1)), QPointF(path.elementAt(index + 2))}});
    }
  }
  return curves;
}

constexpr qreal radius = 28;
constexpr QRectF panelArea(10, 20, 338, 337);

TEST(ContinuousRectangleTest, KeepsToItsBounds) {
  const QRectF bounds = continuousRectangle(panelArea, radius).boundingRect();
  EXPECT_NEAR(bounds.left(), panelArea.left(), 1e-9);
  EXPECT_NEAR(bounds.right(), panelArea.right(), 1e-9);
  EXPECT_NEAR(bounds.top(), panelArea.top(), 1e-9);
  EXPECT_NEAR(bounds.bottom(), panelArea.bottom(), 1e-9);
}

TEST(ContinuousRectangleTest, EveryCornerIsThreeCurvesThatReachSixteenTenthsOfTheRadius) {
  const auto curves = curvesOf(continuousRectangle(panelArea, radius));
  ASSERT_EQ(curves.size(), 12U);
  const qreal reach = 1.6 * radius;
  const std::array corners{panelArea.topRight(), panelArea.bottomRight(), panelArea.bottomLeft(),
                           panelArea.topLeft()};
  for (std::size_t corner = 0; corner < corners.size(); ++corner) {
    const QPointF begin = curves[3 * corner].points.front() - corners.at(corner);
    const QPointF end = curves[3 * corner + 2].points.back() - corners.at(corner);
    EXPECT_NEAR(std::hypot(begin.x(), begin.y()), reach, 1e-9);
    EXPECT_NEAR(std::hypot(end.x(), end.y()), reach, 1e-9);
    EXPECT_NEAR(begin.x() * end.x() + begin.y() * end.y(), 0, 1e-9);
  }
}

TEST(ContinuousRectangleTest, MiddleOfACornerIsAnArcOfTheRadius) {
  const auto curves = curvesOf(continuousRectangle(panelArea, radius));
  const QPointF centre = panelArea.topRight() + QPointF(-radius, radius);
  for (const QPointF& end : {curves[1].points.front(), curves[1].points.back()}) {
    EXPECT_NEAR(std::hypot(end.x() - centre.x(), end.y() - centre.y()), radius, 1e-9);
  }
  const qreal begin =
      std::atan2(centre.y() - curves[1].points.front().y(), curves[1].points.front().x() - centre.x());
  const qreal end =
      std::atan2(centre.y() - curves[1].points.back().y(), curves[1].points.back().x() - centre.x());
  EXPECT_NEAR((begin - end) * 180 / M_PI, 36, 1e-9);
}

TEST(ContinuousRectangleTest, CurvatureNeverJumps) {
  for (const QRectF& rectangle : {panelArea, QRectF(0, 0, 306, 54), QRectF(0, 0, 278, 4)}) {
    const auto curves = curvesOf(continuousRectangle(rectangle, std::min(radius, rectangle.height() / 2)));
    ASSERT_EQ(curves.size(), 12U);
    for (std::size_t first = 0; first < curves.size(); first += 3) {
      EXPECT_NEAR(curves[first].curvature(false), 0, 1e-9);
      const double ofArc = curves[first + 1].curvature(false);
      EXPECT_GT(ofArc, 0);
      EXPECT_NEAR(curves[first].curvature(true) / ofArc, 1, 1e-3);
      EXPECT_NEAR(curves[first + 2].curvature(false) / ofArc, 1, 1e-3);
      EXPECT_NEAR(curves[first + 2].curvature(true), 0, 1e-9);
    }
  }
}

TEST(ContinuousRectangleTest, DirectionNeverJumps) {
  const auto curves = curvesOf(continuousRectangle(panelArea, radius));
  const auto angle = [](QPointF vector) { return std::atan2(vector.y(), vector.x()); };
  for (std::size_t index = 0; index + 1 < curves.size(); ++index) {
    if (index % 3 != 2) {
      EXPECT_NEAR(angle(curves[index].points[3] - curves[index].points[2]),
                  angle(curves[index + 1].points[1] - curves[index + 1].points[0]), 1e-9);
    }
  }
}

TEST(ContinuousRectangleTest, ShortEdgesKeepTheRadiusWhileTheyCan) {
  // The footer's card: 27 to the middle are less than 1.6 radii, but enough for the arc.
  const auto curves = curvesOf(continuousRectangle({0, 0, 306, 54}, 22));
  EXPECT_NEAR(curves[0].curvature(true), 1.0 / 22, 1e-9);
  EXPECT_NEAR(curves[0].points.front().x(), 306 - 27, 1e-9);
}

TEST(ContinuousRectangleTest, RadiusBeyondTheEdgesShrinks) {
  const QRectF small(0, 0, 10, 40);
  const auto curves = curvesOf(continuousRectangle(small, radius));
  ASSERT_EQ(curves.size(), 12U);
  const double used = 1 / curves[0].curvature(true);
  EXPECT_LT(used, 5.3);
  EXPECT_GT(used, 5.2);
  EXPECT_TRUE(small.contains(continuousRectangle(small, radius).boundingRect()));
}

TEST(ContinuousRectangleTest, CapsuleIsHardlyACircleLess) {
  const QPainterPath capsule = continuousRectangle({0, 0, 278, 4}, 2);
  for (const qreal degrees : {0, 15, 30, 45, 60, 75, 90}) {
    const qreal angle = degrees * M_PI / 180;
    const QPointF outwards(-std::cos(angle), -std::sin(angle));
    EXPECT_TRUE(capsule.contains(QPointF(2, 2) + 1.97 * outwards)) << degrees;
    EXPECT_FALSE(capsule.contains(QPointF(2, 2) + 2.03 * outwards)) << degrees;
  }
}

TEST(ContinuousRectangleTest, WithoutARadiusItIsARectangle) {
  QPainterPath rectangle;
  rectangle.addRect(panelArea);
  for (const qreal none : {0.0, -1.0, std::numeric_limits<qreal>::quiet_NaN()}) {
    EXPECT_EQ(continuousRectangle(panelArea, none), rectangle) << none;
  }
}

TEST(ContinuousRectangleTest, EmptyStaysEmpty) {
  for (const QRectF& empty : {QRectF(), QRectF(0, 0, 0, 4), QRectF(0, 0, 4, -1)}) {
    EXPECT_TRUE(curvesOf(continuousRectangle(empty, radius)).empty());
  }
}

TEST(ContinuousRectangleTest, DataTellsTheSame) {
  EXPECT_EQ(continuousRectangleData(10, 20, 0), u"M 0 0 L 10 0 L 10 20 L 0 20 L 0 0 Z"_s);
  const QString data = continuousRectangleData(338, 337, radius);
  EXPECT_TRUE(data.startsWith(u"M 293.2 0 C "_s)) << data.toStdString();
  EXPECT_EQ(data.count(QLatin1Char('C')), 12);
  EXPECT_TRUE(data.endsWith(u"Z"_s));
}

}  // namespace
}  // namespace mireval
