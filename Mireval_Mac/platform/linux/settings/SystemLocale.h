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
/// The bus is only asked to pass the announcements on, which does not start the service. After a loss of the
/// bus, what was announced stays.
class SystemLocale final : public LocaleChanges, public SystemLanguages {
  Q_OBJECT

 public:
  SystemLocale();

  QStringList preferredLanguages() const override { return variables().preferredLanguages(); }
  QStringList preferredLocalizations(const QStringList& available) const override {
    return variables().preferredLocalizations(available);
  }
  QString currentLocaleIdentifier() const override { return variables().currentLocaleIdentifier(); }

 private:
  void handleAnnouncement(sd_bus_message* message);
  void handleAnswer(sd_bus_message* reply);
  void ask();
  LocaleVariables variables() const;
  void setAnnounced(QByteArrayList assignments);

  /// "LANG=ja_JP.UTF-8" and so on.
  std::optional<QByteArrayList> m_announced;
  MessageBus m_bus{MessageBus::Kind::system};
  MessageBus::Slot m_rule;
  MessageBus::Slot m_question;
};

}  // namespace mireval
