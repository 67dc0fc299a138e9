#include "platform/linux/instance/BusActivation.h"

#include "platform/linux/bus/BusFixture.h"
#include "platform/linux/bus/MockService.h"

#include <QByteArrayList>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QList>
#include <QVariantMap>
#include <QXmlStreamReader>

#include <chrono>
#include <memory>

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

class BusActivationTest : public BusFixture {
 protected:
  ~BusActivationTest() override { qunsetenv("XDG_ACTIVATION_TOKEN"); }

  void makeActivation(StartedBy startedBy = StartedBy::user) {
    m_activation = std::make_unique<BusActivation>(m_connection, applicationId.toUtf8(), startedBy);
    QObject::connect(m_activation.get(), &BusActivation::requested, m_activation.get(),
                     [this](Request request) {
                       m_requests.append(request);
                       m_tokens.append(qgetenv("XDG_ACTIVATION_TOKEN"));
                     });
    m_activation->appear();
  }

  bool hasName() const { return hasOwner(applicationId); }

  /// On a running bus, with its name.
  void appear(StartedBy startedBy = StartedBy::user) {
    startBus();
    makeActivation(startedBy);
    ASSERT_TRUE(waitFor([this] { return hasName(); }));
  }

  QDBusMessage call(const QString& method, const QVariantList& arguments,
                    const QString& interface = applicationInterface) const {
    return BusFixture::call(applicationId, objectPath, interface, method, arguments);
  }

  bool activate(const QVariantMap& platformData = {}) const {
    return call(u"Activate"_s, {platformData}).type() == QDBusMessage::ReplyMessage;
  }

  bool activateSettings(const QVariantMap& platformData = {}) const {
    return call(u"ActivateAction"_s, {u"Settings"_s, variants({}), platformData}).type() ==
           QDBusMessage::ReplyMessage;
  }

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
  startBus();
  MockService other(m_bus.address(), applicationId, objectPath);
  other.answer = [](const QDBusMessage& call) { return call.createReply(); };
  other.appear();
  makeActivation();
  ASSERT_FALSE(waitFor([this] { return !activate() || !m_requests.isEmpty(); }, 300ms));
  other.disappear();
  EXPECT_TRUE(waitFor([this] { return activate(); }));
  EXPECT_EQ(m_requests.value(0), Request::showPanel);
}

TEST_F(BusActivationTest, ComesBackWithTheBus) {
  appear();
  m_bus.kill();
  EXPECT_TRUE(waitFor([this] { return !m_connection.isOpen(); }));
  startBus();
  ASSERT_TRUE(waitFor([this] { return hasName(); }));
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
}

TEST_F(BusActivationTest, GoesFromTheBusAtTheEnd) {
  appear();
  m_activation.reset();
  EXPECT_TRUE(waitFor([this] { return !hasName(); }));
}

}  // namespace
}  // namespace mireval
