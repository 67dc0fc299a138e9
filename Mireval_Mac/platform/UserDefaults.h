#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace mireval {

/// The user's stored preferences. Used on the UI thread.
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  /// The value of the key; nothing if there is none, if it is no text or if the store cannot be read.
  virtual std::optional<QString> string(QStringView key) const = 0;

  /// Stores the value under the key. Other entries stay. If the value cannot be stored, nothing changes.
  virtual void set(QStringView key, const QString& value) = 0;
};

}  // namespace mireval
