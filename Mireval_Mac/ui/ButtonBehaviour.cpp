#include "ui/ButtonBehaviour.h"

namespace mireval {
namespace {

bool isPressingKey(int key) {
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

ButtonBehaviour::ButtonBehaviour(QQuickItem* parent) : QQuickItem(parent) {
  setAcceptedMouseButtons(Qt::LeftButton);
  setActiveFocusOnTab(true);
}

void ButtonBehaviour::mousePressEvent(QMouseEvent* event) {
  event->accept();
  setPressedByPointer(true);
}

void ButtonBehaviour::mouseMoveEvent(QMouseEvent* event) {
  setPressedByPointer(contains(event->position()));
}

void ButtonBehaviour::mouseReleaseEvent(QMouseEvent* event) {
  setPressedByPointer(false);
  if (contains(event->position())) {
    Q_EMIT clicked();
  }
}

void ButtonBehaviour::mouseUngrabEvent() {
  setPressedByPointer(false);
}

void ButtonBehaviour::keyPressEvent(QKeyEvent* event) {
  if (!isPressingKey(event->key())) {
    event->ignore();
    return;
  }
  if (!event->isAutoRepeat()) {
    setHoldingKey(event->key());
    Q_EMIT clicked();
  }
}

void ButtonBehaviour::keyReleaseEvent(QKeyEvent* event) {
  if (!isPressingKey(event->key())) {
    event->ignore();
    return;
  }
  if (event->key() == m_holdingKey && !event->isAutoRepeat()) {
    setHoldingKey(0);
  }
}

void ButtonBehaviour::focusOutEvent(QFocusEvent* event) {
  QQuickItem::focusOutEvent(event);
  // The release of the key will go to another button or window.
  setHoldingKey(0);
}

void ButtonBehaviour::setPressedByPointer(bool pressed) {
  const bool before = isPressed();
  m_pressedByPointer = pressed;
  if (isPressed() != before) {
    Q_EMIT pressedChanged();
  }
}

void ButtonBehaviour::setHoldingKey(int key) {
  const bool before = isPressed();
  m_holdingKey = key;
  if (isPressed() != before) {
    Q_EMIT pressedChanged();
  }
}

}  // namespace mireval
