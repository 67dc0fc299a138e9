#include "platform/linux/bus/MessageBus.h"

#include "platform/linux/bus/BusFixture.h"
#include "platform/linux/bus/MockService.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTimer>

#include <systemd/sd-id128.h>

#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString ourName = u"org.example.Ours"_s;

/// Counts changes of the owner of a name.
struct Follower {
  MessageBus::Slot rule;
  int changes = 0;

  static int count(sd_bus_message*, void* userdata, sd_bus_error*) {
    ++static_cast<Follower*>(userdata)->changes;
    return 0;
  }
  void follow(MessageBus& bus) { rule = bus.listenToOwner("org.example.Other", count, this); }
};

class MessageBusTest : public BusFixture {
 protected:
  void attach() {
    m_connection.attach(&m_service, [this] {
      m_name = m_connection.requestName(ourName.toUtf8(), MessageBus::IfTaken::wait);
    });
  }

  bool comes() {
    return waitFor([this] { return m_client->hasOwner(ourName); });
  }

  bool goes() {
    return waitFor([this] { return !m_connection.isOpen(); });
  }

  bool opens() {
    return waitFor([this] { return m_connection.isOpen(); });
  }

  /// For longer than one attempt takes.
  bool staysClosed() {
    return !waitFor([this] { return m_connection.isOpen(); }, 400ms);
  }

  QObject m_service;
  MessageBus::Slot m_name;
  QSignalSpy m_opened{&m_connection, &MessageBus::opened};
  QSignalSpy m_lost{&m_connection, &MessageBus::lost};
};

TEST_F(MessageBusTest, NothingConnectsBeforeAServiceIsAttached) {
  startBus();
  m_connection.tryAgain();
  EXPECT_TRUE(staysClosed());
}

TEST_F(MessageBusTest, ServicesShareOneConnection) {
  startBus();
  attach();
  ASSERT_TRUE(comes());
  const QStringList before = m_client->names(u":"_s);
  QObject another;
  int introductions = 0;
  m_connection.attach(&another, [&introductions] { ++introductions; });
  EXPECT_EQ(introductions, 1);
  EXPECT_EQ(m_client->names(u":"_s), before);
  EXPECT_EQ(m_opened.size(), 1);
}

TEST_F(MessageBusTest, ListenersOfOneOwnerDoNotDisturbEachOther) {
  startBus();
  Follower first;
  auto second = std::make_unique<Follower>();
  m_connection.attach(&m_service, [&] {
    first.follow(m_connection);
    second->follow(m_connection);
  });
  MockService other(m_bus.address(), u"org.example.Other"_s, u"/"_s);
  // The bus knows the rules once it has met a later request.
  attach();
  ASSERT_TRUE(comes());
  other.appear();
  other.disappear();
  ASSERT_TRUE(waitFor([&] { return first.changes == 2 && second->changes == 2; }));
  second.reset();
  other.appear();
  EXPECT_TRUE(waitFor([&] { return first.changes == 3; }));
}

TEST_F(MessageBusTest, ACallStartsAServiceOnlyIfItIsToldTo) {
  const QString started = startBusThatStarts(u"org.example.Other"_s);
  m_connection.attach(&m_service, [] {});
  const auto callStarts = [this, &started](MessageBus::Start start) {
    bool answered = false;
    const MessageBus::Slot slot = m_connection.call(
        {"org.example.Other", "/", "org.example", "Hello"}, {}, start,
        [](sd_bus_message*, void* userdata, sd_bus_error*) {
          *static_cast<bool*>(userdata) = true;
          return 0;
        },
        &answered);
    EXPECT_TRUE(waitFor([&answered] { return answered; }));
    return QFile::exists(started);
  };
  EXPECT_FALSE(callStarts(MessageBus::Start::no));
  EXPECT_TRUE(callStarts(MessageBus::Start::yes));
}

TEST_F(MessageBusTest, AServiceThatHasGoneIsNotIntroduced) {
  startBus();
  int introductions = 0;
  auto service = std::make_unique<QObject>();
  m_connection.attach(service.get(), [&introductions] { ++introductions; });
  attach();
  ASSERT_TRUE(comes());
  service.reset();
  m_bus.kill();
  ASSERT_TRUE(goes());
  startBus();
  EXPECT_TRUE(comes());
  EXPECT_EQ(introductions, 1);
}

TEST_F(MessageBusTest, ABusThatComesLaterAndComesBackIsFound) {
  attach();
  EXPECT_FALSE(m_connection.isOpen());
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(m_lost.size(), i);
    startBus();
    ASSERT_TRUE(comes()) << i;
    m_bus.kill();
    ASSERT_TRUE(goes()) << i;
    EXPECT_TRUE(staysClosed());
  }
}

TEST_F(MessageBusTest, ABusWhoseSocketIsHeldIsFound) {
  m_bus.holdSocket();
  startBus();
  attach();
  for (int i = 1; i <= 2; ++i) {
    ASSERT_TRUE(comes()) << i;
    m_bus.kill();
    ASSERT_TRUE(waitFor([this, i] { return m_lost.size() == i; }));
    startBus();
  }
  EXPECT_TRUE(comes());
}

// A limit against hanging, not a measurement.
TEST_F(MessageBusTest, AFrozenBusHoldsNothingUp) {
  startBus();
  m_bus.freeze();
  QElapsedTimer timer;
  timer.start();
  attach();
  {
    MessageBus anotherThatGoesAtOnce(MessageBus::Kind::session);
    anotherThatGoesAtOnce.attach(&m_service, [] {});
  }
  EXPECT_FALSE(waitFor([] { return false; }, 100ms));
  EXPECT_LT(timer.elapsed(), 5000);
  m_bus.thaw();
  EXPECT_TRUE(comes());
  m_bus.freeze();
  timer.start();
  for (int i = 0; i < 1000; ++i) {
    m_connection.emitSignal("/", "org.example", "Signal", "s", "text");
    QCoreApplication::processEvents();
  }
  EXPECT_LT(timer.elapsed(), 5000);
  m_bus.thaw();
  EXPECT_TRUE(comes());
}

TEST_F(MessageBusTest, AnAddressWithSeveralBusesAndEscapesIsUnderstood) {
  qputenv("DBUS_SESSION_BUS_ADDRESS",
          "unix:abstract=nobody;unix:key=value,path=" + m_bus.address().mid(10).toUtf8().toPercentEncoding());
  attach();
  m_bus.start();
  EXPECT_TRUE(opens());
}

TEST_F(MessageBusTest, ABusThatCannotBeWatchedForIsFoundWhenToldTo) {
  const QByteArray address = "unix:abstract=mireval-" + QByteArray::number(::getpid());
  qputenv("DBUS_SESSION_BUS_ADDRESS", address);
  attach();
  m_bus.start(QString::fromLatin1(address));
  EXPECT_TRUE(staysClosed());
  m_connection.tryAgain();
  EXPECT_TRUE(opens());
}

/// Treats each connection to the socket as it is told.
class StrangeBus : public QObject {
 public:
  StrangeBus(int socket, std::function<void(int client)> treat)
      : m_treat(std::move(treat)), m_acceptable(socket, QSocketNotifier::Read) {
    connect(&m_acceptable, &QSocketNotifier::activated, this, [this, socket] {
      ++m_connections;
      m_treat(::accept(socket, nullptr, nullptr));
    });
  }

  int connections() const { return m_connections; }

 private:
  const std::function<void(int client)> m_treat;
  QSocketNotifier m_acceptable;
  int m_connections = 0;
};

/// Answers Hello and closes the connection soon after. Deletes itself then, or goes with its parent.
class ShortWelcome : public QObject {
 public:
  ShortWelcome(int client, QObject* parent) : QObject(parent) {
    sd_bus_new(&m_server);
    sd_bus_set_fd(m_server, client, client);
    sd_id128_t id{};
    sd_id128_randomize(&id);
    sd_bus_set_server(m_server, 1, id);
    sd_bus_add_filter(m_server, nullptr, answerHello, nullptr);
    sd_bus_start(m_server);
    connect(&m_turns, &QTimer::timeout, this, [this] {
      while (sd_bus_process(m_server, nullptr) > 0) {
      }
    });
    m_turns.start(1ms);
    QTimer::singleShot(50ms, this, &QObject::deleteLater);
  }
  ~ShortWelcome() override { sd_bus_close_unref(m_server); }

 private:
  static int answerHello(sd_bus_message* call, void*, sd_bus_error*) {
    return sd_bus_message_is_method_call(call, nullptr, "Hello") > 0
               ? sd_bus_reply_method_return(call, "s", ":1.1")
               : 0;
  }

  sd_bus* m_server = nullptr;
  QTimer m_turns;
};

TEST_F(MessageBusTest, ABusThatDropsEachConnectionIsTriedOnce) {
  const StrangeBus bus(m_bus.holdSocket(), [](int client) { ::close(client); });
  attach();
  ASSERT_TRUE(waitFor([this] { return m_lost.size() == 1; }));
  EXPECT_FALSE(waitFor([&bus] { return bus.connections() > 1; }, 1s));
}

TEST_F(MessageBusTest, ABusThatWelcomesAndDropsEachConnectionIsTriedFiveTimesASecond) {
  QObject welcomes;
  const StrangeBus bus(m_bus.holdSocket(), [&welcomes](int client) { new ShortWelcome(client, &welcomes); });
  attach();
  ASSERT_TRUE(waitFor([this] { return m_lost.size() >= 2; }));
  const int before = bus.connections();
  EXPECT_FALSE(waitFor([&] { return bus.connections() > before + 5; }, 1s));
}

TEST_F(MessageBusTest, WhileTheBusIsAwayNobodyIsWoken) {
  attach();
  EXPECT_TRUE(staysClosed());
  EXPECT_EQ(wakeUps(), 0);
}

}  // namespace
}  // namespace mireval
