#include "platform/linux/instance/BusActivation.h"

#include "platform/linux/bus/MockService.h"
#include "platform/linux/bus/PrivateBus.h"
#include "platform/linux/bus/WaitFor.h"
#include "platform/linux/bus/WaitForAnswer.h"

#include <gtest/gtest.h>

#include <QByteArrayList>
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QList>
#include <QVariantMap>
#include <QXmlStreamReader>

#include <chrono>
#include <memory>
#include <optional>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Request = SingleInstance::Request;
using StartedBy = BusActivation::StartedBy;

const QString applicationId = u"org.example.Radio-Two"_s;
const QString objectPath = u"/org/example/Radio_Two"_s;
const QString applicationInterface = u"org.freedesktop.Application"_s;
const QString invalidArguments = u"org.freedesktop.DBus.Error.InvalidArgs"_s;

/// Several variants, for a parameter of the type av.
QVariant variants(const QVariantList& values) {
  return values;
}

/// What nobody expects beside the token.
QVariantMap oddPlatformData(const QVariantMap& more = {}) {
  QVariantMap data{{u"a"_s, 7}, {u"b"_s, QStringList{u"x"_s}}, {u"z"_s, QVariantMap{{u"k"_s, 1.5}}}};
  data.insert(more);
  return data;
}

class BusActivationTest : public testing::Test {
 protected:
  ~BusActivationTest() override {
    QDBusConnection::disconnectFromBus(u"desktop"_s);
    qunsetenv("XDG_ACTIVATION_TOKEN");
  }

  void connectDesktop() {
    QDBusConnection::disconnectFromBus(u"desktop"_s);
    m_desktop = QDBusConnection::connectToBus(m_bus.address(), u"desktop"_s);
  }

  void makeActivation(StartedBy startedBy = StartedBy::user) {
    m_activation = std::make_unique<BusActivation>(applicationId.toUtf8(), startedBy);
    QObject::connect(m_activation.get(), &BusActivation::requested, m_activation.get(),
                     [this](Request request) {
                       m_requests.append(request);
                       m_tokens.append(qgetenv("XDG_ACTIVATION_TOKEN"));
                     });
    m_activation->appear();
  }

  bool hasName() const {
    QDBusMessage question = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    question.setArguments({applicationId});
    return waitForAnswer(m_desktop->asyncCall(question)).arguments().value(0).toBool();
  }

  /// On a running bus, with its name.
  void appear(StartedBy startedBy = StartedBy::user) {
    m_bus.start();
    connectDesktop();
    makeActivation(startedBy);
    ASSERT_TRUE(waitFor([this] { return hasName(); }));
  }

  QDBusMessage call(const QString& method, const QVariantList& arguments,
                    const QString& interface = applicationInterface) const {
    QDBusMessage message = QDBusMessage::createMethodCall(applicationId, objectPath, interface, method);
    message.setAutoStartService(false);
    message.setArguments(arguments);
    return waitForAnswer(m_desktop->asyncCall(message));
  }

  bool activate(const QVariantMap& platformData = {}) const {
    return call(u"Activate"_s, {platformData}).type() == QDBusMessage::ReplyMessage;
  }

  bool activateSettings(const QVariantMap& platformData = {}) const {
    return call(u"ActivateAction"_s, {u"Settings"_s, variants({}), platformData}).type() ==
           QDBusMessage::ReplyMessage;
  }

  int m_argumentCount = 1;
  char m_programName[5] = "test";
  char* m_arguments[2] = {m_programName, nullptr};
  QCoreApplication m_application{m_argumentCount, m_arguments};
  PrivateBus m_bus;
  std::optional<QDBusConnection> m_desktop;
  std::unique_ptr<BusActivation> m_activation;
  QList<Request> m_requests;
  QByteArrayList m_tokens;
};

TEST_F(BusActivationTest, DescribesItselfAsTheStandardDoes) {
  appear();
  QStringList description;
  const QDBusMessage answer = call(u"Introspect"_s, {}, u"org.freedesktop.DBus.Introspectable"_s);
  QXmlStreamReader xml(answer.arguments().value(0).toString());
  bool isOurs = false;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) {
      continue;
    }
    const auto attributes = xml.attributes();
    if (xml.name() == u"interface"_s) {
      isOurs = attributes.value(u"name"_s) == applicationInterface;
    } else if (isOurs && xml.name() == u"method"_s) {
      description.append(attributes.value(u"name"_s).toString());
    } else if (isOurs && xml.name() == u"arg"_s) {
      EXPECT_EQ(attributes.value(u"direction"_s), u"in"_s);
      description.append(u"%1 %2"_s.arg(attributes.value(u"type"_s), attributes.value(u"name"_s)));
    }
  }
  EXPECT_EQ(description, (QStringList{u"Activate"_s, u"a{sv} platform_data"_s, u"Open"_s, u"as uris"_s,
                                      u"a{sv} platform_data"_s, u"ActivateAction"_s, u"s action_name"_s,
                                      u"av parameter"_s, u"a{sv} platform_data"_s}));
}

TEST_F(BusActivationTest, PassesRequestsOn) {
  appear();
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
  EXPECT_TRUE(activateSettings());
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, (QList{Request::showPanel, Request::showSettings, Request::showPanel}));
}

TEST_F(BusActivationTest, TheRequestThatStartedItIsMetByTheStart) {
  appear(StartedBy::bus);
  EXPECT_TRUE(activate({{u"activation-token"_s, u"unused"_s}}));
  EXPECT_EQ(m_requests, QList<Request>());
  EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
}

TEST_F(BusActivationTest, SettingsAreWantedAlsoAtTheStart) {
  appear(StartedBy::bus);
  EXPECT_TRUE(activateSettings());
  EXPECT_EQ(m_requests, QList{Request::showSettings});
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, (QList{Request::showSettings, Request::showPanel}));
}

TEST_F(BusActivationTest, AMistakeIsAStartToo) {
  appear(StartedBy::bus);
  EXPECT_FALSE(call(u"Open"_s, {QStringList{u"file:///song.m4a"_s}, QVariantMap()}).errorName().isEmpty());
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});

  m_activation.reset();
  makeActivation(StartedBy::bus);
  ASSERT_TRUE(waitFor([this] { return hasName(); }));
  EXPECT_FALSE(call(u"ActivateAction"_s, {u"Dance"_s, variants({}), QVariantMap()}).errorName().isEmpty());
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, (QList{Request::showPanel, Request::showPanel}));
}

TEST_F(BusActivationTest, TokensAreThereForTheWindow) {
  appear();
  EXPECT_TRUE(activate(oddPlatformData()));
  EXPECT_TRUE(activate(oddPlatformData({{u"desktop-startup-id"_s, u"id"_s}})));
  EXPECT_TRUE(
      activate(oddPlatformData({{u"desktop-startup-id"_s, u"id"_s}, {u"activation-token"_s, u"token"_s}})));
  EXPECT_TRUE(activateSettings(oddPlatformData({{u"activation-token"_s, u"other"_s}})));
  EXPECT_EQ(m_tokens, (QByteArrayList{"", "id", "token", "other"}));
}

TEST_F(BusActivationTest, TokensThatAreNoneAreLeft) {
  appear();
  EXPECT_TRUE(activate({{u"activation-token"_s, 7}, {u"desktop-startup-id"_s, u"id"_s}}));
  EXPECT_TRUE(activate({{u"activation-token"_s, u""_s}, {u"desktop-startup-id"_s, QStringList{}}}));
  EXPECT_EQ(m_tokens, (QByteArrayList{"id", "id"}));
}

TEST_F(BusActivationTest, ParametersOfAnActionAreLeft) {
  appear();
  const QVariant parameters = variants({7, u"now"_s, QStringList{u"x"_s}});
  EXPECT_EQ(
      call(u"ActivateAction"_s, {u"Settings"_s, parameters, QVariantMap{{u"activation-token"_s, u"t"_s}}})
          .type(),
      QDBusMessage::ReplyMessage);
  EXPECT_EQ(m_requests, QList{Request::showSettings});
  EXPECT_EQ(m_tokens, QByteArrayList{"t"});
}

TEST_F(BusActivationTest, FilesCannotBeOpened) {
  appear();
  EXPECT_EQ(call(u"Open"_s, {QStringList{u"file:///song.m4a"_s}, QVariantMap()}).errorName(),
            u"org.freedesktop.DBus.Error.NotSupported"_s);
  EXPECT_EQ(m_requests, QList<Request>());
  // None is what Activate is for.
  const QVariantMap platformData{{u"activation-token"_s, u"token"_s}};
  EXPECT_EQ(call(u"Open"_s, {QStringList(), platformData}).type(), QDBusMessage::ReplyMessage);
  EXPECT_EQ(m_requests, QList{Request::showPanel});
  EXPECT_EQ(m_tokens, QByteArrayList{"token"});
}

TEST_F(BusActivationTest, WrongRequestsAreOrdinaryErrors) {
  appear();
  for (const QString& action : {u"settings"_s, u"Settings "_s, u"Quit"_s, u"%s%n"_s, u""_s}) {
    EXPECT_EQ(call(u"ActivateAction"_s, {action, variants({}), QVariantMap()}).errorName(), invalidArguments);
  }
  EXPECT_EQ(call(u"Activate"_s, {}).errorName(), invalidArguments);
  EXPECT_EQ(call(u"Activate"_s, {u"now"_s}).errorName(), invalidArguments);
  EXPECT_EQ(call(u"Open"_s, {u"file:///song.m4a"_s}).errorName(), invalidArguments);
  EXPECT_EQ(call(u"ActivateAction"_s, {u"Settings"_s, QVariantMap()}).errorName(), invalidArguments);
  EXPECT_EQ(call(u"Quit"_s, {}).errorName(), u"org.freedesktop.DBus.Error.UnknownMethod"_s);
  EXPECT_EQ(m_requests, QList<Request>());
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
}

TEST_F(BusActivationTest, TakesTheNameWhenItsOwnerLetsGo) {
  m_bus.start();
  connectDesktop();
  MockService other(m_bus.address(), applicationId, objectPath);
  other.answer = [](const QDBusMessage& call) { return call.createReply(); };
  other.appear();
  makeActivation();
  ASSERT_FALSE(waitFor([this] { return !activate() || !m_requests.isEmpty(); }, 300ms));
  other.disappear();
  EXPECT_TRUE(waitFor([this] { return activate(); }));
  EXPECT_EQ(m_requests.value(0), Request::showPanel);
}

TEST_F(BusActivationTest, GoesFromTheBusAtTheEnd) {
  appear();
  m_activation.reset();
  EXPECT_TRUE(waitFor([this] { return !hasName(); }));
}

TEST_F(BusActivationTest, WithoutABusItAppearsWhenToldTo) {
  makeActivation();
  m_activation->appear();
  m_bus.start();
  connectDesktop();
  EXPECT_FALSE(waitFor([this] { return hasName(); }, 200ms));
  m_activation->appear();
  ASSERT_TRUE(waitFor([this] { return hasName(); }));
  // Nothing is done twice.
  m_activation->appear();
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
}

TEST_F(BusActivationTest, ComesBackWithABusWhoseSocketIsHeld) {
  m_bus.holdSocket();
  appear();
  m_bus.kill();
  EXPECT_FALSE(waitFor([] { return false; }, 100ms));
  m_bus.start();
  connectDesktop();
  ASSERT_TRUE(waitFor([this] { return hasName(); }));
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
}

TEST_F(BusActivationTest, ABusThatComesBackLaterFindsItWhenToldTo) {
  appear();
  m_bus.kill();
  EXPECT_FALSE(waitFor([] { return false; }, 100ms));
  m_bus.start();
  connectDesktop();
  m_activation->appear();
  ASSERT_TRUE(waitFor([this] { return hasName(); }));
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
}

// A limit against hanging, not a measurement.
TEST_F(BusActivationTest, AFrozenBusHoldsNothingUp) {
  m_bus.start();
  connectDesktop();
  m_bus.freeze();
  QElapsedTimer timer;
  timer.start();
  makeActivation();
  waitFor([] { return false; }, 100ms);
  EXPECT_LT(timer.elapsed(), 5000);
  m_bus.thaw();
  ASSERT_TRUE(waitFor([this] { return hasName(); }));
  EXPECT_TRUE(activate());
}

}  // namespace
}  // namespace mireval
