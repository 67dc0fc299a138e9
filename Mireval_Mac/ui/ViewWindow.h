#pragma once

#include <QQuickView>
#include <QSize>
#include <QString>

#include <filesystem>
#include <initializer_list>
#include <utility>

namespace mireval {

class ColorScheme;
class Notices;
class WindowSystem;

/// A window that shows one of our QML views, together with everything that QML needs for it: destroying the
/// window frees it all. It is always as large as its view: a larger view is drawn once the window has grown,
/// a smaller one before the window shrinks, so that no frame shows a part of it. Lives on the UI thread.
class ViewWindow : public QQuickView {
  Q_OBJECT

 public:
  /// Whether a window can be opened now. Says so if not.
  static bool canOpen(const WindowSystem& windowSystem, Notices& notices);

  /// Makes sure that the open window is seen and has the keyboard.
  void bringToFront();

 protected:
  /// The view's properties, by their names. The objects are not owned and must outlive the window.
  using Properties = std::initializer_list<std::pair<QString, QObject*>>;

  /// `view` is the view's file name. The window's title is the application's name.
  ViewWindow(const QString& view, Properties properties);

  /// Gives the window the desktop's frame and the icon in the image file. To be called before the window is
  /// shown.
  void setFramed(const std::filesystem::path& icon);

  /// Puts an opaque colour behind the view, whichever suits the scheme, now and at each change. The scheme
  /// must outlive the window.
  void setGround(const ColorScheme& colorScheme, const QColor& light, const QColor& dark);

  bool event(QEvent* event) override;

  /// The next frame is smaller than the window, which shrinks after it.
  virtual void prepareSmallerFrame() {}

  /// Of the view, in device-independent pixels.
  QSize viewSize() const;

 private:
  void fixSize();
  bool isReadyToDraw();
  void waitForSize(const QSize& wanted);

  bool m_waitsForSize = false;
  /// What the desktop has made of the last request. `size` may be ahead of it.
  QSize m_grantedSize;
  /// The desktop did not let the window become this large.
  QSize m_refusedSize;
};

}  // namespace mireval
