#include "platform/linux/settings/SystemLocale.h"

#include "platform/linux/bus/BusFixture.h"
#include "platform/linux/bus/MockService.h"

#include <QDBusVariant>
#include <QProcess>
#include <QSignalSpy>

#include <chrono>
#include <functional>
#include <memory>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString serviceName = u"org.freedesktop.locale1"_s;
const QString localePath = u"/org/freedesktop/locale1"_s;
const QString localeInterface = u"org.freedesktop.locale1"_s;
const QString standardProperties = u"org.freedesktop.DBus.Properties"_s;
const QStringList available{u"en"_s, u"zh-Hans"_s, u"zh-Hant"_s, u"ja"_s};

class SystemLocaleTest : public BusFixture {
 protected:
  SystemLocaleTest() : BusFixture({}, MessageBus::Kind::system) {
    for (const char* const name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_NUMERIC"}) {
      qunsetenv(name);
    }
    qputenv("LANG", "de_DE.UTF-8");
  }

  std::unique_ptr<MockService> makeService(const QString& name = serviceName) {
    return std::make_unique<MockService>(m_bus.address(), name, localePath);
  }

  void makeLocale() {
    m_locale = std::make_unique<SystemLocale>();
    m_changes = std::make_unique<QSignalSpy>(m_locale.get(), &LocaleChanges::currentLocaleDidChange);
  }

  /// A locale that listens on a running bus, and a service there.
  void listen() {
    startBus();
    m_service = makeService();
    m_service->appear();
    makeLocale();
    ASSERT_TRUE(waitFor([this] { return m_service->isListenedTo(); }));
  }

  /// The same. The service says that this is the system's locale, and the question is answered.
  void listenFrom(const QStringList& assignments) {
    listen();
    ASSERT_TRUE(waitFor([this] { return !m_service->calls().empty(); }));
    EXPECT_EQ(m_service->calls(), QStringList{u"Get org.freedesktop.locale1 Locale"_s});
    m_service->answer = answering(QVariant::fromValue(QDBusVariant(assignments)));
    m_service->answerUnanswered();
  }

  bool changes(qsizetype times = 1) {
    return waitFor([this, times] { return m_changes->size() == times; });
  }

  static QVariantList change(const QVariantMap& changed, const QStringList& invalidated = {},
                             const QString& interface = localeInterface) {
    return {interface, changed, invalidated};
  }

  void announce(const QVariantMap& changed, const QStringList& invalidated = {}) {
    m_service->sendSignal(standardProperties, u"PropertiesChanged"_s, change(changed, invalidated));
  }

  void announceLocale(const QStringList& assignments) { announce({{u"Locale"_s, assignments}}); }

  /// Announces an Italian locale and waits for it. True if nothing that was sent before had an effect.
  bool nothingHappenedBefore(const QString& localeBefore) {
    const bool asBefore = m_locale->currentLocaleIdentifier() == localeBefore;
    m_changes->clear();
    announceLocale({u"LANG=it_IT.UTF-8"_s});
    return waitFor([this] { return m_locale->currentLocaleIdentifier() == u"it_IT"_s; }) && asBefore &&
           m_changes->size() == 1;
  }

  std::unique_ptr<MockService> m_service;
  std::unique_ptr<SystemLocale> m_locale;
  std::unique_ptr<QSignalSpy> m_changes;
};

TEST_F(SystemLocaleTest, WithoutABusTheEnvironmentIsReadAfresh) {
  const SystemLocale locale;
  QGuiApplication::processEvents();
  EXPECT_EQ(locale.preferredLanguages(), QStringList{u"de_DE"_s});
  EXPECT_EQ(locale.preferredLocalizations(available), QStringList());
  EXPECT_EQ(locale.currentLocaleIdentifier(), u"de_DE"_s);
  qputenv("LANGUAGE", "ja:zh_TW");
  qputenv("LC_MESSAGES", "fr_FR");
  EXPECT_EQ(locale.preferredLanguages(), (QStringList{u"ja"_s, u"zh_TW"_s, u"fr_FR"_s}));
  EXPECT_EQ(locale.preferredLocalizations(available), (QStringList{u"ja"_s, u"zh-Hant"_s}));
  EXPECT_EQ(locale.currentLocaleIdentifier(), u"fr_FR"_s);
}

TEST_F(SystemLocaleTest, AnAnnouncementReplacesTheLocaleAsAWhole) {
  qputenv("LC_MESSAGES", "fr_FR.UTF-8");
  listen();
  QStringList seenDuringTheSignal;
  QObject::connect(m_locale.get(), &LocaleChanges::currentLocaleDidChange, m_locale.get(),
                   [&] { seenDuringTheSignal = m_locale->preferredLanguages(); });
  announceLocale({u"LANG=ja_JP.UTF-8"_s, u"LC_MESSAGES=zh_TW.UTF-8"_s, u"LC_NUMERIC=en_GB.UTF-8"_s});
  ASSERT_TRUE(changes());
  EXPECT_EQ(m_locale->preferredLanguages(), QStringList{u"zh_TW"_s});
  EXPECT_EQ(m_locale->preferredLocalizations(available), QStringList{u"zh-Hant"_s});
  EXPECT_EQ(m_locale->currentLocaleIdentifier(), u"zh_TW"_s);
  EXPECT_EQ(seenDuringTheSignal, m_locale->preferredLanguages());
  // Among other properties.
  announce({{u"Aaa"_s, QVariantMap{{u"x"_s, 1}}},
            {u"Locale"_s, QStringList{u"LANG=de_DE.UTF-8"_s}},
            {u"Zzz"_s, 1.5}},
           {u"X11Model"_s});
  ASSERT_TRUE(changes(2));
  EXPECT_EQ(m_locale->preferredLanguages(), QStringList{u"de_DE"_s});
  EXPECT_EQ(m_service->calls(), QStringList());
}

// Logins copy the system's variables. Only what the user has changed is the user's.
TEST_F(SystemLocaleTest, CopiesOfTheSystemsVariablesAreReplaced) {
  qputenv("LANGUAGE", "de:fr");
  qputenv("LC_ALL", "de_DE.UTF-8");
  listenFrom({u"LANG=de_DE.UTF-8"_s, u"LC_ALL=de_DE.UTF-8"_s, u"LANGUAGE=de:fr"_s});
  announceLocale({u"LANG=ja_JP.UTF-8"_s});
  ASSERT_TRUE(changes());
  EXPECT_EQ(m_locale->preferredLanguages(), QStringList{u"ja_JP"_s});
  announceLocale({u"LANG=ja_JP.UTF-8"_s, u"LANGUAGE=zh_TW"_s});
  ASSERT_TRUE(changes(2));
  EXPECT_EQ(m_locale->preferredLanguages(), (QStringList{u"zh_TW"_s, u"ja_JP"_s}));
}

TEST_F(SystemLocaleTest, TheUsersOwnLanguageStays) {
  qputenv("LANGUAGE", "zh_TW");
  listenFrom({u"LANG=de_DE.UTF-8"_s, u"LANGUAGE=de"_s});
  announceLocale({u"LANG=ja_JP.UTF-8"_s, u"LANGUAGE=ja"_s});
  ASSERT_TRUE(changes());
  EXPECT_EQ(m_locale->preferredLanguages(), (QStringList{u"zh_TW"_s, u"ja_JP"_s}));
  // Also when the system comes to have the same.
  announceLocale({u"LANG=ja_JP.UTF-8"_s, u"LANGUAGE=zh_TW"_s});
  announceLocale({u"LANG=fr_FR.UTF-8"_s});
  ASSERT_TRUE(changes(3));
  EXPECT_EQ(m_locale->preferredLanguages(), (QStringList{u"zh_TW"_s, u"fr_FR"_s}));
}

TEST_F(SystemLocaleTest, TheUsersOwnLocaleStays) {
  qputenv("LC_ALL", "fr_FR.UTF-8");
  listenFrom({u"LANG=de_DE.UTF-8"_s});
  announceLocale({u"LANG=ja_JP.UTF-8"_s, u"LC_MESSAGES=zh_TW.UTF-8"_s});
  ASSERT_TRUE(changes());
  EXPECT_EQ(m_locale->preferredLanguages(), QStringList{u"fr_FR"_s});
  EXPECT_EQ(m_locale->currentLocaleIdentifier(), u"fr_FR"_s);
}

TEST_F(SystemLocaleTest, WhatCannotBeComparedIsTheUsers) {
  qputenv("LANGUAGE", "zh_TW");
  listen();
  ASSERT_TRUE(waitFor([this] { return !m_service->calls().empty(); }));
  m_service->answer = [](const QDBusMessage& call) {
    return call.createErrorReply(QDBusError::AccessDenied, u"not you"_s);
  };
  m_service->answerUnanswered();
  announceLocale({u"LANG=ja_JP.UTF-8"_s});
  ASSERT_TRUE(changes());
  EXPECT_EQ(m_locale->preferredLanguages(), (QStringList{u"zh_TW"_s, u"ja_JP"_s}));
}

TEST_F(SystemLocaleTest, AnAnswerAfterAnAnnouncementIsTooLate) {
  qputenv("LANGUAGE", "zh_TW");
  listen();
  ASSERT_TRUE(waitFor([this] { return !m_service->calls().empty(); }));
  announceLocale({u"LANG=ja_JP.UTF-8"_s, u"LANGUAGE=zh_TW"_s});
  ASSERT_TRUE(changes());
  m_service->answer = answering(QVariant::fromValue(QDBusVariant(QStringList{u"LANGUAGE=zh_TW"_s})));
  m_service->answerUnanswered();
  announceLocale({u"LANG=fr_FR.UTF-8"_s});
  ASSERT_TRUE(changes(2));
  EXPECT_EQ(m_locale->preferredLanguages(), (QStringList{u"zh_TW"_s, u"fr_FR"_s}));
}

TEST_F(SystemLocaleTest, EmptyAndOddListsAreSurvived) {
  listen();
  announceLocale({});
  ASSERT_TRUE(changes());
  EXPECT_EQ(m_locale->preferredLanguages(), QStringList());
  EXPECT_EQ(m_locale->preferredLocalizations(available), QStringList());
  EXPECT_EQ(m_locale->currentLocaleIdentifier(), QString());
  announceLocale({u""_s, u"="_s, u"LANG"_s, u"LANGUAGEX=fr"_s, u"=ja"_s, u"LANG=ja_JP=x"_s, u"LANG=en"_s,
                  QString(100'000, u'x')});
  ASSERT_TRUE(changes(2));
  EXPECT_EQ(m_locale->preferredLanguages(), QStringList{u"ja_JP=x"_s});
}

TEST_F(SystemLocaleTest, OtherAnnouncementsAndWrongTypesAreIgnored) {
  listen();
  const QVariantMap japanese{{u"Locale"_s, QStringList{u"LANG=ja_JP"_s}}};
  announce({{u"VConsoleKeymap"_s, u"de"_s}, {u"locale"_s, QStringList{u"LANG=ja_JP"_s}}}, {u"X11Layout"_s});
  announce({});
  m_service->sendSignal(standardProperties, u"PropertiesChanged"_s, change(japanese, {}, u"org.example"_s));
  m_service->sendSignal(localeInterface, u"PropertiesChanged"_s, change(japanese));
  announce({{u"Locale"_s, u"LANG=ja_JP"_s}});
  announce({{u"Locale"_s, 7}, {u"X11Layout"_s, u"de"_s}});
  announce({{u"Locale"_s, QVariant::fromValue(QDBusVariant(QStringList{u"LANG=ja_JP"_s}))}});
  m_service->sendSignal(standardProperties, u"PropertiesChanged"_s, {localeInterface});
  m_service->sendSignal(standardProperties, u"PropertiesChanged"_s,
                        {localeInterface, QStringList{u"Locale"_s}, QStringList{u"Locale"_s}});
  EXPECT_TRUE(nothingHappenedBefore(u"de_DE"_s));
  EXPECT_EQ(m_service->calls(), QStringList());
}

TEST_F(SystemLocaleTest, OnlyTheServiceIsBelieved) {
  listen();
  const auto impostor = makeService(u"org.example"_s);
  impostor->appear();
  const QVariantList wrong = change({{u"Locale"_s, QStringList{u"LANG=ja_JP"_s}}});
  impostor->sendSignal(standardProperties, u"PropertiesChanged"_s, wrong);
  for (const QString& name : m_client->names(u":"_s)) {
    impostor->sendSignalTo(name, standardProperties, u"PropertiesChanged"_s, wrong);
  }
  // An answer of the bus comes after everything that was sent to it before.
  impostor->isListenedTo();
  EXPECT_TRUE(nothingHappenedBefore(u"de_DE"_s));
}

TEST_F(SystemLocaleTest, AnInvalidatedPropertyIsAskedFor) {
  listen();
  announce({{u"X11Layout"_s, u"de"_s}}, {u"X11Model"_s, u"Locale"_s});
  ASSERT_TRUE(waitFor([this] { return !m_service->calls().empty(); }));
  EXPECT_EQ(m_service->calls(), QStringList{u"Get org.freedesktop.locale1 Locale"_s});
  EXPECT_EQ(m_changes->size(), 0);
  EXPECT_EQ(m_locale->currentLocaleIdentifier(), u"de_DE"_s);
  m_service->answer = answering(QVariant::fromValue(QDBusVariant(QStringList{u"LANG=ja_JP.UTF-8"_s})));
  m_service->answerUnanswered();
  ASSERT_TRUE(changes());
  EXPECT_EQ(m_locale->currentLocaleIdentifier(), u"ja_JP"_s);
}

TEST_F(SystemLocaleTest, AnswersWithoutAListAreIgnored) {
  listen();
  using Answer = std::function<QDBusMessage(const QDBusMessage& call)>;
  const Answer refusal = [](const QDBusMessage& call) {
    return call.createErrorReply(QDBusError::AccessDenied, u"not you"_s);
  };
  const Answer text = answering(QVariant::fromValue(QDBusVariant(u"LANG=ja_JP"_s)));
  const Answer bareList = answering(QStringList{u"LANG=ja_JP"_s});
  qsizetype calls = 0;
  for (const Answer& answer : {refusal, text, bareList}) {
    m_service->answer = answer;
    announce({}, {u"Locale"_s});
    ASSERT_TRUE(waitFor([&] { return m_service->calls().size() > calls; }));
    ++calls;
  }
  EXPECT_TRUE(nothingHappenedBefore(u"de_DE"_s));
}

TEST_F(SystemLocaleTest, AServiceThatComesLaterAndGoesIsHeard) {
  startBus();
  makeLocale();
  m_service = makeService();
  ASSERT_TRUE(waitFor([this] { return m_service->isListenedTo(); }));
  for (const QString& territory : {u"AT"_s, u"CH"_s}) {
    m_service->appear();
    announceLocale({u"LANG=de_"_s + territory});
    EXPECT_TRUE(waitFor([&] { return m_locale->currentLocaleIdentifier() == u"de_"_s + territory; }));
    m_service->disappear();
    m_service = makeService();
  }
  EXPECT_EQ(m_changes->size(), 2);
}

TEST_F(SystemLocaleTest, NothingIsAskedOfTheBusButToPassOnAnnouncements) {
  m_bus.start();
  QProcess monitor;
  monitor.start(u"dbus-monitor"_s,
                {u"--address"_s, m_bus.address(), u"--profile"_s, u"type='method_call'"_s});
  QByteArray calls;
  const auto heard = [&](const char* member) {
    calls += monitor.readAllStandardOutput();
    return calls.contains(member);
  };
  ASSERT_TRUE(waitFor([&] { return heard("NameLost"); }));
  calls.clear();
  makeLocale();
  ASSERT_TRUE(waitFor([&] { return heard("AddMatch"); }));
  waitFor([&] { return heard("nothing else"); }, 300ms);
  QByteArrayList members;
  for (const QByteArray& line : calls.split('\n')) {
    if (line.startsWith("mc\t")) {
      members.append(line.split('\t').value(7));
    }
  }
  EXPECT_EQ(members, (QByteArrayList{"Hello", "AddMatch"}));
  monitor.kill();
  monitor.waitForFinished();
}

TEST_F(SystemLocaleTest, ListensToTheBusThatComesBack) {
  listen();
  announceLocale({u"LANG=ja_JP.UTF-8"_s});
  ASSERT_TRUE(changes());
  m_bus.kill();
  EXPECT_FALSE(waitFor([this] { return m_changes->size() > 1; }, 200ms));
  EXPECT_EQ(m_locale->currentLocaleIdentifier(), u"ja_JP"_s);
  m_bus.start();
  m_service = makeService();
  m_service->appear();
  ASSERT_TRUE(waitFor([this] { return m_service->isListenedTo(); }));
  EXPECT_TRUE(nothingHappenedBefore(u"ja_JP"_s));
}

}  // namespace
}  // namespace mireval
