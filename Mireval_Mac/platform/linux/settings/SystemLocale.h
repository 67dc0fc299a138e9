#pragma once

#include "platform/LocaleChanges.h"
#include "platform/SystemLanguages.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/settings/LocaleVariables.h"

#include <QByteArrayList>
#include <QStringList>

#include <optional>

namespace mireval {

/// The user's languages by the locale's variables: those of this process's environment, which is what the
/// user logged in with, until org.freedesktop.locale1 announces on the system bus that the system's locale
/// has changed. From then on the announced variables count, and no other.
///
/// No call waits for the bus, and nothing is asked of it but to pass the announcements on; the service that
/// makes them is not started for that. After a loss of the bus, what was announced stays. The bus is then
/// connected to once more, at once, which reaches a successor where the system keeps the bus's socket open
/// meanwhile. Where that fails, or no bus was there at first, nothing is announced any more.
class SystemLocale final : public LocaleChanges, public SystemLanguages {
  Q_OBJECT

 public:
  SystemLocale();
  ~SystemLocale() override;

  QStringList preferredLanguages() const override { return variables().preferredLanguages(); }
  QStringList preferredLocalizations(const QStringList& available) const override {
    return variables().preferredLocalizations(available);
  }
  QString currentLocaleIdentifier() const override { return variables().currentLocaleIdentifier(); }

 private:
  /// The callbacks of the bus.
  struct Bus;

  void ask();
  LocaleVariables variables() const;
  void setAnnounced(QByteArrayList assignments);

  /// "LANG=ja_JP.UTF-8" and so on.
  std::optional<QByteArrayList> m_announced;
  MessageBus m_bus{MessageBus::Kind::system};
};

}  // namespace mireval
