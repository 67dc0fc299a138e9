#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>
#include <QString>

namespace mireval {

/// A QML item that screen readers know as a progress bar from 0 to 1, and that draws nothing. Qt's own
/// elements for QML items have no value in this role.
///
/// An element for screen readers is only made for an item that uses `Accessible` in QML, too.
class ProgressIndicator : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged)
  /// What progresses.
  Q_PROPERTY(QString label MEMBER m_label NOTIFY labelChanged)

 public:
  explicit ProgressIndicator(QQuickItem* parent = nullptr);

  double value() const { return m_value; }
  void setValue(double value);
  const QString& label() const { return m_label; }

 Q_SIGNALS:
  void valueChanged();
  void labelChanged();

 private:
  double m_value = 0;
  QString m_label;
};

}  // namespace mireval
