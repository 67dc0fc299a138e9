#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
