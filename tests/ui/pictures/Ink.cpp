#include "ui/pictures/Ink.h"

#include <algorithm>
#include <utility>

namespace mireval {
namespace {

// A letter's edge may touch a pixel that it hardly darkens.
constexpr double visible = 0.05;

/// Where ink begins and ends along an axis: a pixel at an end is covered from its inner side.
std::pair<double, double> extent(const std::vector<double>& darkest) {
  const auto isVisible = [](double coverage) { return coverage > visible; };
  const auto first = std::ranges::find_if(darkest, isVisible);
  if (first == darkest.end()) {
    return {0, 0};
  }
  const auto last = std::find_if(darkest.rbegin(), darkest.rend(), isVisible);
  return {static_cast<double>(first - darkest.begin()) + 1 - *first,
          static_cast<double>(darkest.rend() - last) - 1 + *last};
}

}  // namespace

Ink::Ink(const QImage& picture, double scale, QRectF bounds, const std::function<bool(QPointF)>& area,
         QPointF ground, int full)
    : m_scale(scale),
      m_origin((bounds.topLeft() * scale).toPoint()),
      m_width(static_cast<int>(bounds.width() * scale)),
      m_height(static_cast<int>(bounds.height() * scale)),
      m_coverage(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)) {
  const QPoint groundPixel(static_cast<int>(ground.x() * scale), static_cast<int>(ground.y() * scale));
  const int empty = qRed(picture.pixel(groundPixel));
  auto coverage = m_coverage.begin();
  for (int y = 0; y < m_height; ++y) {
    for (int x = 0; x < m_width; ++x, ++coverage) {
      if (area(middleOf(x, y))) {
        const int grey = qRed(picture.pixel(m_origin + QPoint(x, y)));
        *coverage = std::clamp((grey - empty) / static_cast<double>(full - empty), 0.0, 1.0);
      }
    }
  }
}

double Ink::amount() const {
  double amount = 0;
  forEach([&](QPointF, double coverage) { amount += coverage; });
  return amount / (m_scale * m_scale);
}

QPointF Ink::centroid() const {
  QPointF sum;
  double amount = 0;
  forEach([&](QPointF place, double coverage) {
    sum += place * coverage;
    amount += coverage;
  });
  return sum / amount;
}

QRectF Ink::box() const {
  std::vector<double> columns(static_cast<std::size_t>(m_width));
  std::vector<double> rows(static_cast<std::size_t>(m_height));
  for (int y = 0; y < m_height; ++y) {
    for (int x = 0; x < m_width; ++x) {
      double& column = columns[static_cast<std::size_t>(x)];
      double& row = rows[static_cast<std::size_t>(y)];
      column = std::max(column, at(x, y));
      row = std::max(row, at(x, y));
    }
  }
  const auto [left, right] = extent(columns);
  const auto [top, bottom] = extent(rows);
  return {(m_origin + QPointF(left, top)) / m_scale, (m_origin + QPointF(right, bottom)) / m_scale};
}

std::vector<Ink::Part> Ink::parts() const {
  std::vector<Part> parts;
  std::vector<bool> seen(m_coverage.size());
  for (std::size_t start = 0; start < m_coverage.size(); ++start) {
    if (seen[start] || m_coverage[start] < 0.5) {
      continue;
    }
    Part part;
    std::vector<std::size_t> pending{start};
    seen[start] = true;
    while (!pending.empty()) {
      const std::size_t pixel = pending.back();
      pending.pop_back();
      ++part.pixels;
      part.largestCoverage = std::max(part.largestCoverage, m_coverage[pixel]);
      for (const int down : {-m_width, 0, m_width}) {
        for (const int right : {-1, 0, 1}) {
          const auto next = static_cast<std::size_t>(static_cast<long>(pixel) + down + right);
          if (next < m_coverage.size() && !seen[next] && m_coverage[next] >= 0.5) {
            seen[next] = true;
            pending.push_back(next);
          }
        }
      }
    }
    parts.push_back(part);
  }
  return parts;
}

void Ink::forEach(const std::function<void(QPointF, double)>& visit) const {
  for (int y = 0; y < m_height; ++y) {
    for (int x = 0; x < m_width; ++x) {
      if (at(x, y) > 0) {
        visit(middleOf(x, y), at(x, y));
      }
    }
  }
}

}  // namespace mireval
