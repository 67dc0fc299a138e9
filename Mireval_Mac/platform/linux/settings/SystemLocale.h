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
/// has changed. From then on the announced variables count. Only LANGUAGE and LC_ALL stay as they are in the
/// environment, each if the user has set it: if it is not what the system had before the first announcement.
///
/// The system's locale is asked for, which starts the service, only if one of these two is set. Otherwise
/// the bus is only asked to pass announcements on. After a loss of the bus, what was announced stays.
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
  void handleInitialLocale(sd_bus_message* reply);
  bool isUsers(const char* name) const;
  LocaleVariables variables() const;
  void setAnnounced(QByteArrayList assignments);

  // "LANG=ja_JP.UTF-8" and so on.

  /// The system's locale before the first announcement, as far as it is known.
  QByteArrayList m_initial;
  std::optional<QByteArrayList> m_announced;
  MessageBus m_bus{MessageBus::Kind::system};
  MessageBus::Slot m_rule;
  MessageBus::Slot m_question;
  MessageBus::Slot m_initialQuestion;
};

}  // namespace mireval
