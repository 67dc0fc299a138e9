#pragma once

#include <QAccessibleObject>

namespace mireval {

class ProgressIndicator;

/// What a screen reader sees of a ProgressIndicator. It cannot be changed from there.
class ProgressIndicatorElement final : public QAccessibleObject, public QAccessibleValueInterface {
 public:
  /// Lives as long as the indicator.
  explicit ProgressIndicatorElement(ProgressIndicator& indicator);

  QAccessible::Role role() const override { return QAccessible::ProgressBar; }
  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;
  QRect rect() const override;
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QAccessibleInterface* child(int /*number*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

  QVariant currentValue() const override;
  void setCurrentValue(const QVariant& /*value*/) override {}
  QVariant minimumValue() const override { return 0.0; }
  QVariant maximumValue() const override { return 1.0; }
  QVariant minimumStepSize() const override { return 0.0; }

 private:
  ProgressIndicator& m_indicator;
};

}  // namespace mireval
