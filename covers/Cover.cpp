#include "Cover.h"

#include "CreativeCover.h"
#include "FocusCover.h"
#include "GeometricShapes.h"
#include "RelaxationCover.h"
#include "TempoCover.h"

#include <QPainter>

namespace mireval {
namespace {

void paint(Mood mood, QPainter& painter, int number) {
  switch (mood) {
    case Mood::relaxation:
      RelaxationCover::paint(painter, number);
      break;
    case Mood::focus:
      FocusCover::paint(painter, number);
      break;
    case Mood::creative:
      CreativeCover::paint(painter, number);
      break;
    case Mood::tempo:
      TempoCover::paint(painter, number);
      break;
  }
}

}  // namespace

QImage Cover::draw(Mood mood, int number) {
  QImage image(sidePixels, sidePixels, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(sidePixels / pictureSide, sidePixels / pictureSide);
  paint(mood, painter, number);
  return image;
}

}  // namespace mireval
