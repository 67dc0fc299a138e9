// What any program with Qt's windows takes to start and to end: the measure for the start of the player.

#include <QGuiApplication>

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  return 0;
}
