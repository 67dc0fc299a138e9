#include "ui/ProgressIndicator.h"

#include "ui/ProgressIndicatorElement.h"

#include <QAccessible>

namespace mireval {
namespace {

QAccessibleInterface* makeElement(const QString& /*className*/, QObject* object) {
  auto* const indicator = qobject_cast<ProgressIndicator*>(object);
  // Qt owns it.
  return indicator == nullptr ? nullptr : new ProgressIndicatorElement(*indicator);
}

}  // namespace

ProgressIndicator::ProgressIndicator(QQuickItem* parent) : QQuickItem(parent) {
  // The factory that was installed last is asked first.
  [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(&makeElement), true);
}

void ProgressIndicator::setValue(double value) {
  if (value == m_value) {
    return;
  }
  m_value = value;
  Q_EMIT valueChanged();
  if (QAccessible::isActive()) {
    QAccessibleValueChangeEvent event(this, value);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace mireval
