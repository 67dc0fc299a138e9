#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace mireval {

/// A QML item that can be pressed, with the left mouse button, a finger or a key, and that draws nothing. Its
/// whole rectangle is the target.
///
/// The buttons of one parent item are a row: the arrow keys, Home and End move the focus within it.
class ButtonBehaviour : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// While a key holds the button, or a pointer that pressed it is still on it.
  Q_PROPERTY(bool pressed READ isPressed NOTIFY pressedChanged)
  /// While the button has the keyboard focus and the user's last move was made with a key.
  Q_PROPERTY(bool showsFocus READ showsFocus NOTIFY showsFocusChanged)

 public:
  explicit ButtonBehaviour(QQuickItem* parent = nullptr);

  /// What Qt calls when a screen reader presses the button. A handler of Accessible.pressAction in QML would
  /// be a second press action beside that of the role.
  Q_INVOKABLE void accessiblePressAction() { Q_EMIT clicked(); }
  /// The same, for roles that have a toggle action as well.
  Q_INVOKABLE void accessibleToggleAction() { Q_EMIT clicked(); }

  bool isPressed() const { return m_pressedByPointer || m_holdingKey != 0; }
  bool showsFocus() const { return m_lastUsedByKey && hasActiveFocus(); }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// A pointer was released on the button, or Space, Return or Enter went down. A held key clicks once.
  void clicked();
  void pressedChanged();
  void showsFocusChanged();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseUngrabEvent() override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void setPressedByPointer(bool pressed);
  /// 0 for none.
  void setHoldingKey(int key);
  void setLastUsedByKey(bool byKey);
  void moveFocus(int key);

  bool m_pressedByPointer = false;
  int m_holdingKey = 0;
  bool m_lastUsedByKey = false;
};

}  // namespace mireval
