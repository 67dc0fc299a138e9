#pragma once

#include "platform/LocaleChanges.h"

#include <QMetaMethod>

namespace mireval {

/// A system whose languages change when the test says so.
class FakeLocaleChanges final : public LocaleChanges {
 public:
  void change() { Q_EMIT currentLocaleDidChange(); }

  /// Whether anybody is connected.
  bool isObserved() const {
    return isSignalConnected(QMetaMethod::fromSignal(&LocaleChanges::currentLocaleDidChange));
  }
};

}  // namespace mireval
