#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace mireval {

/// The user's stored preferences. Used on the UI thread.
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  /// What is stored under the key; nothing when that is no text or when the store cannot be read.
  virtual std::optional<QString> string(QStringView key) const = 0;

  /// Stores the value under the key. Other entries stay. What cannot be written is left as it was.
  virtual void set(QStringView key, const QString& value) = 0;
};

}  // namespace mireval
