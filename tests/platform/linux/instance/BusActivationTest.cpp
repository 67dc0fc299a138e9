#include "platform/linux/instance/BusActivation.h"

#include "platform/linux/bus/BusFixture.h"
#include "platform/linux/bus/MockService.h"

#include <QByteArrayList>
#include <QList>
#include <QVariantMap>
#include <QXmlStreamReader>

#include <chrono>
#include <functional>
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
const QString notSupported = u"org.freedesktop.DBus.Error.NotSupported"_s;
const QString invalidArguments = u"org.freedesktop.DBus.Error.InvalidArgs"_s;

/// For a parameter of the type av.
const QVariant noVariants = QVariantList();

/// What nobody expects beside the token.
QVariantMap oddPlatformData(const QVariantMap& more = {}) {
  QVariantMap data{{u"a"_s, 7}, {u"b"_s, QStringList{u"x"_s}}, {u"z"_s, QVariantMap{{u"k"_s, 1.5}}}};
  data.insert(more);
  return data;
}

class BusActivationTest : public BusFixture {
 protected:
  BusActivationTest() : BusFixture({applicationId, objectPath, applicationInterface}) {}
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

  bool comes() {
    return waitFor([this] { return m_client->hasOwner(applicationId); });
  }

  /// On a running bus, with its name.
  void appear(StartedBy startedBy = StartedBy::user) {
    startBus();
    makeActivation(startedBy);
    ASSERT_TRUE(comes());
  }

  QString error(const QString& method, const QVariantList& arguments) const {
    return m_client->error(method, arguments);
  }

  bool activate(const QVariantMap& platformData = {}) const {
    return error(u"Activate"_s, {platformData}).isEmpty();
  }

  QString activateAction(const QString& action, const QVariantMap& platformData = {}) const {
    return error(u"ActivateAction"_s, {action, noVariants, platformData});
  }

  bool activateSettings(const QVariantMap& platformData = {}) const {
    return activateAction(u"Settings"_s, platformData).isEmpty();
  }

  QString open(const QStringList& files, const QVariantMap& platformData = {}) const {
    return error(u"Open"_s, {files, platformData});
  }

  std::unique_ptr<BusActivation> m_activation;
  QList<Request> m_requests;
  QByteArrayList m_tokens;
};

TEST_F(BusActivationTest, DescribesItselfAsTheStandardDoes) {
  appear();
  QStringList description;
  const QDBusMessage answer =
      m_client->call({applicationId, objectPath, u"org.freedesktop.DBus.Introspectable"_s}, u"Introspect"_s);
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

TEST_F(BusActivationTest, AModeIsAnActionAndNeedsNoToken) {
  appear();
  for (const QString& mode : {u"focus"_s, u"tempo"_s, u"creative"_s, u"relaxation"_s}) {
    EXPECT_EQ(activateAction(mode, {{u"activation-token"_s, u"unused"_s}}), QString());
  }
  EXPECT_EQ(m_requests,
            (QList{Request::playFocus, Request::playTempo, Request::playCreative, Request::playRelaxation}));
  EXPECT_EQ(m_tokens, (QByteArrayList{"", "", "", ""}));
}

TEST_F(BusActivationTest, TheRequestThatStartedItIsMetByTheStart) {
  appear(StartedBy::bus);
  EXPECT_TRUE(activate({{u"activation-token"_s, u"unused"_s}}));
  EXPECT_EQ(m_requests, QList<Request>());
  EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
}

TEST_F(BusActivationTest, AnyOtherFirstRequestIsNotMetByTheStart) {
  startBus();
  const auto ask = [this](const std::function<void()>& firstRequest) {
    m_requests.clear();
    m_activation.reset();
    makeActivation(StartedBy::bus);
    EXPECT_TRUE(comes());
    firstRequest();
    EXPECT_TRUE(activate());
    return m_requests;
  };
  EXPECT_EQ(ask([this] { EXPECT_TRUE(activateSettings()); }),
            (QList{Request::showSettings, Request::showPanel}));
  EXPECT_EQ(ask([this] { EXPECT_EQ(activateAction(u"tempo"_s), QString()); }),
            (QList{Request::playTempo, Request::showPanel}));
  // Mistakes.
  EXPECT_EQ(ask([this] { EXPECT_EQ(open({u"file:///song.m4a"_s}), notSupported); }),
            QList{Request::showPanel});
  EXPECT_EQ(ask([this] { EXPECT_EQ(activateAction(u"Dance"_s), invalidArguments); }),
            QList{Request::showPanel});
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
  const QVariant parameters = QVariantList{7, u"now"_s, QStringList{u"x"_s}};
  const QVariantMap platformData{{u"activation-token"_s, u"t"_s}};
  EXPECT_EQ(error(u"ActivateAction"_s, {u"Settings"_s, parameters, platformData}), QString());
  EXPECT_EQ(m_requests, QList{Request::showSettings});
  EXPECT_EQ(m_tokens, QByteArrayList{"t"});
}

TEST_F(BusActivationTest, FilesCannotBeOpened) {
  appear();
  EXPECT_EQ(open({u"file:///song.m4a"_s}), notSupported);
  EXPECT_EQ(m_requests, QList<Request>());
  // Without files it is a plain request.
  EXPECT_EQ(open({}, {{u"activation-token"_s, u"token"_s}}), QString());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
  EXPECT_EQ(m_tokens, QByteArrayList{"token"});
}

TEST_F(BusActivationTest, WrongRequestsAreOrdinaryErrors) {
  appear();
  for (const QString& action :
       {u"settings"_s, u"Settings "_s, u"Focus"_s, u"relax"_s, u"Quit"_s, u"%s%n"_s, u""_s}) {
    EXPECT_EQ(activateAction(action), invalidArguments);
  }
  EXPECT_EQ(error(u"Activate"_s, {}), invalidArguments);
  EXPECT_EQ(error(u"Activate"_s, {u"now"_s}), invalidArguments);
  EXPECT_EQ(error(u"Open"_s, {u"file:///song.m4a"_s}), invalidArguments);
  EXPECT_EQ(error(u"ActivateAction"_s, {u"Settings"_s, QVariantMap()}), invalidArguments);
  EXPECT_EQ(error(u"Quit"_s, {}), u"org.freedesktop.DBus.Error.UnknownMethod"_s);
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

TEST_F(BusActivationTest, ComesBackWithTheBusAndGoesAtTheEnd) {
  appear();
  m_bus.kill();
  EXPECT_TRUE(waitFor([this] { return !m_connection.isOpen(); }));
  startBus();
  ASSERT_TRUE(comes());
  EXPECT_TRUE(activate());
  EXPECT_EQ(m_requests, QList{Request::showPanel});
  m_activation.reset();
  EXPECT_TRUE(waitFor([this] { return !m_client->hasOwner(applicationId); }));
}

}  // namespace
}  // namespace mireval
