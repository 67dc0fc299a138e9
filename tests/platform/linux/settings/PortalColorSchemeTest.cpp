#include "platform/linux/settings/PortalColorScheme.h"

#include "platform/linux/bus/BusFixture.h"
#include "platform/linux/bus/MockService.h"

#include <QDBusVariant>
#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString objectPath = u"/org/freedesktop/portal/desktop"_s;
const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;
const QString question = u"Read org.freedesktop.appearance color-scheme"_s;
constexpr uint noPreference = 0;
constexpr uint dark = 1;
constexpr uint light = 2;

QVariant variant(const QVariant& value) {
  return QVariant::fromValue(QDBusVariant(value));
}

class PortalColorSchemeTest : public BusFixture {
 protected:
  PortalColorSchemeTest() { setPaletteDark(false); }

  static void setPaletteDark(bool isDark) {
    QGuiApplication::setPalette(QPalette(isDark ? Qt::black : Qt::white));
    QCoreApplication::processEvents();
  }

  std::unique_ptr<MockService> makePortal() {
    return std::make_unique<MockService>(m_bus.address(), portalName, objectPath);
  }

  static auto preferring(uint preference) { return answering(variant(variant(preference))); }

  /// A scheme that listens to a portal on a running bus, which answers that way, or is silent.
  void startWith(std::function<QDBusMessage(const QDBusMessage& call)> answer) {
    m_bus.start();
    m_portal = makePortal();
    m_portal->answer = std::move(answer);
    m_portal->appear();
    start();
    ASSERT_TRUE(waitFor([this] { return m_portal->isListenedTo() && !m_portal->calls().empty(); }));
  }

  /// The same; its answer has come, and changes count from now on.
  void settleWith(uint preference) {
    startWith(preferring(preference));
    tell(dark);
    ASSERT_TRUE(becomes(true));
    tell(preference);
    ASSERT_TRUE(becomes(preference == dark));
    m_changes->clear();
  }

  void start() {
    m_scheme = std::make_unique<PortalColorScheme>(m_connection);
    m_changes = std::make_unique<QSignalSpy>(m_scheme.get(), &ColorScheme::darkChanged);
  }

  bool becomes(bool isDark) {
    return waitFor([this, isDark] { return m_scheme->isDark() == isDark; });
  }

  void tell(const QVariant& value, const QString& nameSpace = u"org.freedesktop.appearance"_s,
            const QString& key = u"color-scheme"_s) {
    m_portal->sendSignal(settingsInterface, u"SettingChanged"_s, {nameSpace, key, value});
  }

  void tell(uint preference) { tell(variant(preference)); }

  std::unique_ptr<MockService> m_portal;
  std::unique_ptr<PortalColorScheme> m_scheme;
  std::unique_ptr<QSignalSpy> m_changes;
};

TEST_F(PortalColorSchemeTest, TheAnswerDecidesAndNotThePalette) {
  for (const uint preference : {dark, light}) {
    setPaletteDark(preference != dark);
    startWith(preferring(preference));
    EXPECT_TRUE(becomes(preference == dark));
    EXPECT_EQ(m_changes->size(), 1);
    EXPECT_EQ(m_portal->calls(), QStringList{question});
    m_scheme.reset();
    m_portal.reset();
    m_bus.kill();
    ASSERT_TRUE(waitFor([this] { return !m_connection.isOpen(); }));
  }
}

TEST_F(PortalColorSchemeTest, UntilTheAnswerThePaletteDecides) {
  startWith({});
  EXPECT_FALSE(m_scheme->isDark());
  setPaletteDark(true);
  EXPECT_TRUE(m_scheme->isDark());
  m_portal->answer = preferring(light);
  m_portal->answerUnanswered();
  EXPECT_TRUE(becomes(false));
  EXPECT_EQ(m_changes->size(), 2);
}

TEST_F(PortalColorSchemeTest, OnlyAChangeOfTheResultIsTold) {
  startWith(preferring(noPreference));
  tell(light);
  tell(noPreference);
  tell(light);
  tell(dark);
  tell(dark);
  ASSERT_TRUE(becomes(true));
  EXPECT_EQ(m_changes->size(), 1);
  setPaletteDark(true);
  tell(noPreference);
  tell(light);
  ASSERT_TRUE(becomes(false));
  EXPECT_EQ(m_changes->size(), 2);
  EXPECT_EQ(m_portal->calls(), QStringList{question});
}

TEST_F(PortalColorSchemeTest, ThePaletteCountsOnlyWithoutAPreference) {
  settleWith(light);
  setPaletteDark(true);
  setPaletteDark(false);
  tell(dark);
  ASSERT_TRUE(becomes(true));
  EXPECT_EQ(m_changes->size(), 1);
  tell(noPreference);
  ASSERT_TRUE(becomes(false));
  setPaletteDark(true);
  EXPECT_TRUE(m_scheme->isDark());
  EXPECT_EQ(m_changes->size(), 3);
}

TEST_F(PortalColorSchemeTest, OneVariantOrTwoAreUnderstood) {
  startWith(preferring(light));
  tell(variant(variant(dark)));
  EXPECT_TRUE(becomes(true));
  m_portal->disappear();
  ASSERT_TRUE(becomes(false));
  m_portal->answer = answering(variant(dark));
  m_portal->appear();
  EXPECT_TRUE(becomes(true));
}

TEST_F(PortalColorSchemeTest, NonsenseAndErrorsAreNoPreference) {
  setPaletteDark(true);
  startWith(preferring(light));
  ASSERT_TRUE(becomes(false));
  const auto answerAnew = [this](std::function<QDBusMessage(const QDBusMessage& call)> answer) {
    m_portal->disappear();
    m_portal->answer = {};
    m_portal->appear();
    const qsizetype callsBefore = m_portal->calls().size();
    ASSERT_TRUE(waitFor([&] { return m_portal->calls().size() > callsBefore; }));
    tell(light);
    ASSERT_TRUE(becomes(false));
    m_portal->answer = std::move(answer);
    m_portal->answerUnanswered();
    EXPECT_TRUE(becomes(true));
    tell(light);
    ASSERT_TRUE(becomes(false));
  };
  for (const QVariant& nonsense : {variant(3U), variant(UINT_MAX), variant(u"1"_s), variant(1), variant(true),
                                   variant(QStringList{u"1"_s}), variant(QVariantMap{{u"a"_s, light}}),
                                   QVariant(u"light"_s), QVariant(QStringList{u"light"_s})}) {
    SCOPED_TRACE(nonsense.typeName());
    tell(nonsense);
    EXPECT_TRUE(becomes(true));
    answerAnew(answering(nonsense));
  }
  answerAnew([](const QDBusMessage& call) {
    return call.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"no such setting"_s);
  });
}

TEST_F(PortalColorSchemeTest, OtherSettingsAreNotHeard) {
  settleWith(light);
  tell(variant(dark), u"org.freedesktop.appearance"_s, u"contrast"_s);
  tell(variant(dark), u"org.gnome.desktop.interface"_s, u"color-scheme"_s);
  m_portal->sendSignal(settingsInterface, u"SettingChanged"_s, {});
  m_portal->sendSignal(u"org.example"_s, u"SettingChanged"_s,
                       {u"org.freedesktop.appearance"_s, u"color-scheme"_s, variant(dark)});
  tell(light);
  setPaletteDark(true);
  tell(noPreference);
  ASSERT_TRUE(becomes(true));
  EXPECT_EQ(m_changes->size(), 1);
}

TEST_F(PortalColorSchemeTest, APortalMayComeLaterGoAndComeBack) {
  m_bus.start();
  start();
  m_portal = makePortal();
  m_portal->answer = preferring(dark);
  ASSERT_TRUE(waitFor([this] { return m_portal->isListenedTo(); }));
  EXPECT_FALSE(m_scheme->isDark());
  m_portal->appear();
  EXPECT_TRUE(becomes(true));
  EXPECT_EQ(m_portal->calls(), QStringList{question});
  m_portal->disappear();
  EXPECT_TRUE(becomes(false));
  setPaletteDark(true);
  EXPECT_TRUE(m_scheme->isDark());
  m_portal->answer = preferring(light);
  m_portal->appear();
  EXPECT_TRUE(becomes(false));
  EXPECT_EQ(m_portal->calls(), (QStringList{question, question}));
}

TEST_F(PortalColorSchemeTest, TheAnswerOfAPortalThatHasGoneIsDropped) {
  startWith({});
  m_portal->disappear();
  // Still on the bus, it answers all the same.
  m_portal->answer = preferring(dark);
  m_portal->answerUnanswered();
  EXPECT_FALSE(waitFor([this] { return m_scheme->isDark(); }, 100ms));
  m_portal->answer = preferring(light);
  m_portal->appear();
  ASSERT_TRUE(waitFor([this] { return m_portal->calls().size() == 2; }));
  tell(dark);
  ASSERT_TRUE(becomes(true));
  EXPECT_EQ(m_changes->size(), 1);
}

TEST_F(PortalColorSchemeTest, APortalThatDoesNotRunYetIsStarted) {
  const QString started = startBusThatStarts(portalName);
  start();
  EXPECT_TRUE(waitFor([&started] { return QFile::exists(started); }));
}

TEST_F(PortalColorSchemeTest, WithoutABusThePaletteDecides) {
  start();
  setPaletteDark(true);
  EXPECT_TRUE(m_scheme->isDark());
  EXPECT_EQ(m_changes->size(), 1);
}

TEST_F(PortalColorSchemeTest, AsksOnTheBusThatComesBack) {
  startWith(preferring(dark));
  ASSERT_TRUE(becomes(true));
  m_bus.kill();
  ASSERT_TRUE(becomes(false));
  m_bus.start();
  m_portal = makePortal();
  m_portal->answer = preferring(dark);
  m_portal->appear();
  EXPECT_TRUE(becomes(true));
}

}  // namespace
}  // namespace mireval
