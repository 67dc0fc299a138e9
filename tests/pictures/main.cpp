#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickWindow>
#include <QSGRendererInterface>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QQuickWindow::setDefaultAlphaBuffer(true);
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
