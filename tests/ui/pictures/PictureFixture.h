#pragma once

#include "ui/PanelFixture.h"

#include <QImage>
#include <QString>

namespace mireval {

/// Shows windows on the screen of the test and takes the pixels that the screen then has. Environment:
/// MIREVAL_PICTURES, the folder of the references for the scale in use; MIREVAL_SCREENSHOTS, a folder for the
/// pictures that were taken; MIREVAL_RECORD_PICTURES, when set, makes references of what is taken.
class PictureFixture : public PanelFixture {
 protected:
  /// Four modes of sixteen tracks, always in the same order and with the same titles. Those of relaxation are
  /// too long for the panel.
  PictureFixture();

  /// Lets the newest player play on to that second, and the panel know.
  void playTo(double seconds);

  /// What the window shows on the screen once it has drawn all that was done before, in the pixels of the
  /// screen.
  static QImage picture(QQuickWindow& window);

  /// Fails the test when the window's picture does not become the reference of that name within two seconds.
  static void compareWithReference(QQuickWindow& window, const QString& name);
};

}  // namespace mireval
