// A window of another application, in the colour that is its argument. It takes up all the room there is. Its
// title says whether a button or a key was pressed last.

#include <QColor>
#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>

namespace {

class OtherWindow final : public QRasterWindow {
 public:
  explicit OtherWindow(const QColor& color) : m_color(color) {}

 protected:
  void mousePressEvent(QMouseEvent*) override { setTitle(QStringLiteral("button")); }
  void keyPressEvent(QKeyEvent*) override { setTitle(QStringLiteral("key")); }
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(0, 0, width(), height(), m_color); }

 private:
  const QColor m_color;
};

}  // namespace

int main(int argc, char* argv[]) {
  const QGuiApplication application(argc, argv);
  OtherWindow window(QColor(QGuiApplication::arguments().value(1)));
  window.resize(400, 300);
  window.showMaximized();
  return QGuiApplication::exec();
}
