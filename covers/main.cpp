// draw_cover NAME FILE - draws the cover of that name, for example focus-03, into a PNG file.

#include "Cover.h"
#include "library/Mood.h"

#include <QImageWriter>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace mireval {
namespace {

std::optional<QImage> drawCover(const QString& name) {
  for (const Mood mood : allMoods) {
    for (int number = 1; number <= coversPerMood; ++number) {
      if (name == coverImageName(mood, number)) {
        return Cover::draw(mood, number);
      }
    }
  }
  return std::nullopt;
}

int run(const char* name, const char* file) {
  const std::optional<QImage> cover = drawCover(QString::fromLocal8Bit(name));
  if (!cover) {
    std::fprintf(stderr, "draw_cover: there is no cover '%s'\n", name);
    return EXIT_FAILURE;
  }
  QImageWriter writer(QString::fromLocal8Bit(file), "png");
  if (!writer.write(*cover)) {
    std::fprintf(stderr, "draw_cover: %s: %s\n", file, qPrintable(writer.errorString()));
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace mireval

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: draw_cover NAME FILE\n", stderr);
    return 2;
  }
  return mireval::run(argv[1], argv[2]);
}
