#include "ui/ProgressIndicatorElement.h"

#include "ui/ProgressIndicator.h"

#include <QQuickWindow>

namespace mireval {

ProgressIndicatorElement::ProgressIndicatorElement(ProgressIndicator& indicator)
    : QAccessibleObject(&indicator), m_indicator(indicator) {}

QAccessible::State ProgressIndicatorElement::state() const {
  QAccessible::State state;
  state.readOnly = true;
  state.invisible = !m_indicator.isVisible() || window() == nullptr || !window()->isVisible();
  return state;
}

QString ProgressIndicatorElement::text(QAccessible::Text kind) const {
  return kind == QAccessible::Name ? m_indicator.label() : QString();
}

QRect ProgressIndicatorElement::rect() const {
  if (window() == nullptr) {
    return {};
  }
  const QPoint inWindow = m_indicator.mapToScene(QPointF()).toPoint();
  return {window()->mapToGlobal(inWindow), m_indicator.size().toSize()};
}

QWindow* ProgressIndicatorElement::window() const {
  return m_indicator.window();
}

QAccessibleInterface* ProgressIndicatorElement::parent() const {
  for (QQuickItem* item = m_indicator.parentItem(); item != nullptr; item = item->parentItem()) {
    if (QAccessibleInterface* const element = QAccessible::queryAccessibleInterface(item)) {
      return element;
    }
  }
  return QAccessible::queryAccessibleInterface(window());
}

void* ProgressIndicatorElement::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
}

QVariant ProgressIndicatorElement::currentValue() const {
  return m_indicator.value();
}

}  // namespace mireval
