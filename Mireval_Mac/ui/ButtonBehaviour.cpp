#include "ui/ButtonBehaviour.h"

#include <QQuickWindow>

#include <algorithm>
#include <array>
#include <utility>

namespace mireval {
namespace {

bool isPressingKey(int key) {
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isMovingKey(const QKeyEvent& event) {
  static constexpr std::array keys{Qt::Key_Left, Qt::Key_Up,   Qt::Key_Right,
                                   Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
  return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier &&
         std::ranges::find(keys, event.key()) != keys.end();
}

}  // namespace

ButtonBehaviour::ButtonBehaviour(QQuickItem* parent) : QQuickItem(parent) {
  setAcceptedMouseButtons(Qt::LeftButton);
  setActiveFocusOnTab(true);
}

void ButtonBehaviour::mousePressEvent(QMouseEvent* event) {
  event->accept();
  forceActiveFocus(Qt::MouseFocusReason);
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
  if (isMovingKey(*event)) {
    setLastUsedByKey(true);
    moveFocus(event->key());
    return;
  }
  if (!isPressingKey(event->key())) {
    event->ignore();
    return;
  }
  setLastUsedByKey(true);
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

void ButtonBehaviour::focusInEvent(QFocusEvent* event) {
  QQuickItem::focusInEvent(event);
  switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
      m_lastUsedByKey = true;
      break;
    case Qt::MouseFocusReason:
      m_lastUsedByKey = false;
      break;
    default:
      // The window became active; the button shows what it showed before.
      break;
  }
  // The mouse may be used anywhere in the window.
  window()->installEventFilter(this);
  Q_EMIT showsFocusChanged();
}

void ButtonBehaviour::focusOutEvent(QFocusEvent* event) {
  QQuickItem::focusOutEvent(event);
  if (window() != nullptr) {
    window()->removeEventFilter(this);
  }
  // The release of the key will go to another button or window.
  setHoldingKey(0);
  Q_EMIT showsFocusChanged();
}

bool ButtonBehaviour::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin) {
    setLastUsedByKey(false);
  }
  return QQuickItem::eventFilter(watched, event);
}

void ButtonBehaviour::moveFocus(int key) {
  QList<ButtonBehaviour*> row;
  const auto siblings = parentItem()->childItems();
  for (QQuickItem* const sibling : siblings) {
    if (auto* const button = qobject_cast<ButtonBehaviour*>(sibling)) {
      row.append(button);
    }
  }
  const qsizetype here = row.indexOf(this);
  const bool isBack = key == Qt::Key_Left || key == Qt::Key_Up || key == Qt::Key_Home;
  qsizetype target = (here + (isBack ? row.size() - 1 : 1)) % row.size();
  if (key == Qt::Key_Home) {
    target = 0;
  } else if (key == Qt::Key_End) {
    target = row.size() - 1;
  }
  row.at(target)->forceActiveFocus(isBack ? Qt::BacktabFocusReason : Qt::TabFocusReason);
}

void ButtonBehaviour::setLastUsedByKey(bool byKey) {
  if (std::exchange(m_lastUsedByKey, byKey) != byKey) {
    Q_EMIT showsFocusChanged();
  }
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
