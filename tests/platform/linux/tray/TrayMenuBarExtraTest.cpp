#include "platform/linux/tray/TrayMenuBarExtra.h"

#include "platform/linux/bus/BusFixture.h"
#include "platform/linux/tray/MockTrayHost.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPointer>
#include <QStyleHints>
#include <QThread>

#include <chrono>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Manner = MockTrayHost::Manner;
using Place = std::optional<QRect>;

const QVariantList somewhere{1155, 13};

// Longer than it takes until an icon is embedded.
constexpr auto patienceAfterLoss = 2500ms;

constexpr auto doubleClickInterval = 50ms;

/// An icon for a tray that the test makes come.
class FakeEmbeddedIcon final : public EmbeddedIcon {
 public:
  void setToolTip(const QString& text) override { m_toolTip = text; }
  bool isPlaced() const override { return m_placed; }

  const QString& toolTip() const { return m_toolTip; }
  void place(bool placed = true) {
    m_placed = placed;
    Q_EMIT placementChanged();
  }
  void click(Place place) { Q_EMIT activated(place); }

 private:
  QString m_toolTip;
  bool m_placed = false;
};

class TrayMenuBarExtraTest : public BusFixture {
 protected:
  TrayMenuBarExtraTest() {
    QCoreApplication::setApplicationName(u"Mireval"_s);
    QGuiApplication::styleHints()->setMouseDoubleClickInterval(doubleClickInterval.count());
  }

  void makeHost() { m_host = std::make_unique<MockTrayHost>(m_bus.address()); }

  void startBusAndWatcher() {
    startBus();
    makeHost();
  }

  /// An extra that a host shows.
  void showOnHost() {
    startBusAndWatcher();
    m_host->appear();
    show();
    ASSERT_TRUE(becomesPlaced());
  }

  std::unique_ptr<EmbeddedIcon> embed(const std::filesystem::path& image) {
    ++m_embeddings;
    m_image = image;
    if (!m_canEmbed) {
      return nullptr;
    }
    auto icon = std::make_unique<FakeEmbeddedIcon>();
    if (m_placesEmbedded) {
      icon->place();
    }
    m_embedded = icon.get();
    return icon;
  }

  void show() {
    m_sinceShown.start();
    m_extra.show("folder/icon.png", {.activated =
                                         [this](Place place) {
                                           m_places.push_back(place);
                                           QThread::msleep(m_openingTime.count());
                                         },
                                     .placed = [this] { ++m_placements; },
                                     .lost = [this] { ++m_lost; },
                                     .missing = [this] { ++m_missing; }});
  }

  /// An extra whose icon is embedded.
  void showEmbedded() {
    startBusAndWatcher();
    show();
    ASSERT_TRUE(isEmbedded());
  }

  bool becomesPlaced(bool placed = true) {
    return waitFor([this, placed] { return m_extra.isPlaced() == placed; });
  }

  bool isEmbedded() {
    return waitFor([this] { return m_embedded != nullptr; });
  }

  /// Nothing is embedded for that long.
  bool nothingIsEmbeddedFor(std::chrono::milliseconds time) {
    return !waitFor([this] { return m_embedded != nullptr; }, time);
  }

  /// Makes the next press one of its own.
  static void pauseAfterPress() {
    waitFor([] { return false; }, doubleClickInterval + 10ms);
  }

  void clickEmbedded(Place place) {
    pauseAfterPress();
    embedded().click(place);
  }

  bool clickItem() {
    pauseAfterPress();
    m_places.clear();
    m_host->item().call(u"Activate"_s, somewhere);
    return waitFor([this] { return !m_places.empty(); });
  }

  std::unique_ptr<MockTrayHost> m_host;
  std::optional<QPoint> m_pointer;
  bool m_canEmbed = true;
  /// Whether a tray is there as soon as the icon is embedded.
  bool m_placesEmbedded = false;
  int m_embeddings = 0;
  std::filesystem::path m_image;
  QPointer<EmbeddedIcon> m_embedded;
  std::vector<Place> m_places;
  /// How long a press keeps the event loop.
  std::chrono::milliseconds m_openingTime{0};
  int m_placements = 0;
  int m_lost = 0;
  int m_missing = 0;
  QElapsedTimer m_sinceShown;
  TrayMenuBarExtra m_extra{m_connection,
                           {.pointer = [this] { return m_pointer; },
                            .embed = [this](const std::filesystem::path& image) { return embed(image); },
                            .patienceAfterLoss = patienceAfterLoss}};

  FakeEmbeddedIcon& embedded() { return static_cast<FakeEmbeddedIcon&>(*m_embedded); }
};

TEST_F(TrayMenuBarExtraTest, AHostShowsTheItem) {
  EXPECT_FALSE(m_extra.isPlaced());
  m_extra.setToolTip(u"Drift"_s);
  showOnHost();
  // Longer than it is waited for anything.
  EXPECT_TRUE(nothingIsEmbeddedFor(2500ms));
  EXPECT_EQ(m_embeddings, 0);
  EXPECT_EQ(m_missing, 0);
}

TEST_F(TrayMenuBarExtraTest, ClicksOnTheItemSayWhere) {
  showOnHost();
  ASSERT_TRUE(clickItem());
  EXPECT_EQ(m_places, std::vector<Place>{QRect(1155, 13, 1, 1)});
  m_pointer = QPoint(7, 790);
  ASSERT_TRUE(clickItem());
  EXPECT_EQ(m_places, std::vector<Place>{QRect(7, 790, 1, 1)});
}

TEST_F(TrayMenuBarExtraTest, TheHostsAnswerComesBeforeThePanel) {
  showOnHost();
  // Whatever the handler does, the message has been dealt with: it may even run an event loop.
  m_extra.setToolTip(u"Drift"_s);
  bool hostWasAnswered = false;
  MessageBus anotherBus(MessageBus::Kind::session);
  TrayMenuBarExtra another(
      anotherBus, {.pointer = [] { return std::nullopt; }, .embed = [](const auto&) { return nullptr; }});
  another.show("icon.png",
               {.activated = [&](Place) { hostWasAnswered = m_host->item().property(u"Status"_s).isValid(); },
                .placed = [] {},
                .lost = [] {},
                .missing = [] {}});
  ASSERT_TRUE(waitFor([&another] { return another.isPlaced(); }));
  m_host->item().call(u"Activate"_s, somewhere);
  EXPECT_TRUE(waitFor([&hostWasAnswered] { return hostWasAnswered; }));
  EXPECT_TRUE(another.isPlaced());
}

TEST_F(TrayMenuBarExtraTest, WithoutAHostTheIconIsEmbeddedAtOnce) {
  m_extra.setToolTip(u"Drift"_s);
  showEmbedded();
  EXPECT_LT(m_sinceShown.elapsed(), 1500);
  EXPECT_EQ(m_image, "folder/icon.png");
  EXPECT_EQ(embedded().toolTip(), u"Mireval\nDrift"_s);
  EXPECT_FALSE(m_extra.isPlaced());
  embedded().place();
  EXPECT_TRUE(m_extra.isPlaced());
}

TEST_F(TrayMenuBarExtraTest, WithoutABusTheIconIsEmbeddedAtOnce) {
  show();
  ASSERT_TRUE(isEmbedded());
  EXPECT_LT(m_sinceShown.elapsed(), 1500);
  embedded().place();
  EXPECT_FALSE(waitFor([this] { return m_missing > 0; }, 2500ms));
}

TEST_F(TrayMenuBarExtraTest, AnEmbeddedIconWithoutATraySaysWhatPlaysAndIsMissing) {
  showEmbedded();
  EXPECT_EQ(embedded().toolTip(), u"Mireval"_s);
  m_extra.setToolTip(u"<Drift>"_s);
  EXPECT_EQ(embedded().toolTip(), u"Mireval\n<Drift>"_s);
  m_extra.setToolTip({});
  EXPECT_EQ(embedded().toolTip(), u"Mireval"_s);
  EXPECT_TRUE(waitFor([this] { return m_missing == 1; }));
}

TEST_F(TrayMenuBarExtraTest, ClicksOnTheEmbeddedIconSayWhere) {
  showEmbedded();
  clickEmbedded(QRect(1109, 774, 22, 22));
  clickEmbedded(std::nullopt);
  m_pointer = QPoint(1120, 780);
  clickEmbedded(QRect(1109, 774, 22, 22));
  clickEmbedded(std::nullopt);
  EXPECT_EQ(m_places, (std::vector<Place>{QRect(1109, 774, 22, 22), std::nullopt, QRect(1109, 774, 22, 22),
                                          QRect(1120, 780, 1, 1)}));
}

TEST_F(TrayMenuBarExtraTest, ADoubleClickIsOnePress) {
  showOnHost();
  for (int press = 1; press <= 2; ++press) {
    pauseAfterPress();
    for (const QString& method : {u"Activate"_s, u"ContextMenu"_s, u"Activate"_s}) {
      EXPECT_EQ(m_host->item().error(method, somewhere), QString());
    }
    pauseAfterPress();
    EXPECT_EQ(m_places, std::vector<Place>(press, QRect(1155, 13, 1, 1)));
  }
}

TEST_F(TrayMenuBarExtraTest, ADoubleClickOnTheEmbeddedIconIsOnePress) {
  showEmbedded();
  const QRect icon(1109, 774, 22, 22);
  for (int press = 1; press <= 2; ++press) {
    clickEmbedded(icon);
    embedded().click(icon);
    EXPECT_EQ(m_places, std::vector<Place>(press, icon));
  }
}

TEST_F(TrayMenuBarExtraTest, PressesWhileThePanelOpensAreOne) {
  // Even if that takes longer than a double click.
  m_openingTime = 4 * doubleClickInterval;
  showOnHost();
  constexpr int presses = 5000;
  QDBusConnection connection = QDBusConnection::connectToBus(m_bus.address(), u"flood"_s);
  QDBusMessage press =
      QDBusMessage::createMethodCall(m_host->registrations().last(), u"/StatusNotifierItem"_s,
                                     u"org.kde.StatusNotifierItem"_s, u"Activate"_s);
  press.setArguments(somewhere);
  for (int i = 0; i < presses; ++i) {
    connection.send(press);
  }
  ASSERT_TRUE(waitFor([this] { return !m_places.empty(); }));
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(m_host->item().property(u"Status"_s), u"Active"_s);
  EXPECT_LT(timer.elapsed(), 1000);
  // An answer on the same connection comes after all presses.
  waitForAnswer(connection.asyncCall(press));
  pauseAfterPress();
  EXPECT_EQ(m_places.size(), 1U);
  EXPECT_TRUE(clickItem());
  QDBusConnection::disconnectFromBus(u"flood"_s);
}

TEST_F(TrayMenuBarExtraTest, AHostThatComesLaterTakesOver) {
  showEmbedded();
  m_host->appear();
  EXPECT_TRUE(waitFor([this] { return m_embedded == nullptr; }));
  EXPECT_TRUE(m_extra.isPlaced());
  m_extra.setToolTip(u"Drift"_s);
  EXPECT_EQ(m_host->item().takeSignals(), QStringList{u"NewToolTip"_s});
  EXPECT_EQ(m_embeddings, 1);
}

TEST_F(TrayMenuBarExtraTest, AHostThatCrashedIsGivenTimeToComeBack) {
  showOnHost();
  for (int i = 0; i < 20; ++i) {
    m_host.reset();
    ASSERT_TRUE(becomesPlaced(false));
    EXPECT_TRUE(nothingIsEmbeddedFor(i == 0 ? 1500ms : 10ms));
    makeHost();
    m_host->appear();
    ASSERT_TRUE(becomesPlaced()) << i;
    EXPECT_TRUE(clickItem());
  }
  EXPECT_TRUE(nothingIsEmbeddedFor(patienceAfterLoss + 500ms));
  EXPECT_EQ(m_embeddings, 0);
  EXPECT_EQ(m_lost, 20);
  EXPECT_EQ(m_missing, 0);
}

TEST_F(TrayMenuBarExtraTest, AfterAHostThatDoesNotComeBackTheIconIsEmbedded) {
  showOnHost();
  m_host->disappear();
  ASSERT_TRUE(becomesPlaced(false));
  EXPECT_TRUE(nothingIsEmbeddedFor(1500ms));
  EXPECT_TRUE(isEmbedded());
  EXPECT_EQ(m_missing, 0);
  m_host->appear();
  EXPECT_TRUE(waitFor([this] { return m_embedded == nullptr; }));
  EXPECT_TRUE(becomesPlaced());
}

TEST_F(TrayMenuBarExtraTest, WhileItIsNotKnownWhetherThereIsAHostNothingIsEmbedded) {
  startBusAndWatcher();
  m_host->setManner(Manner::silent);
  m_host->appear();
  show();
  EXPECT_TRUE(nothingIsEmbeddedFor(2500ms));
  EXPECT_EQ(m_missing, 1);
  m_host->setManner(Manner::polite);
  m_host->answerWaiting();
  EXPECT_TRUE(becomesPlaced());
  EXPECT_EQ(m_embeddings, 0);
}

TEST_F(TrayMenuBarExtraTest, WhenNothingShowsTheIconThatIsSaidOnceForEachLoss) {
  m_canEmbed = false;
  startBusAndWatcher();
  show();
  EXPECT_FALSE(waitFor([this] { return m_missing > 0; }, 1500ms));
  EXPECT_TRUE(waitFor([this] { return m_missing > 0; }));
  for (int losses = 1; losses <= 2; ++losses) {
    m_host->appear();
    ASSERT_TRUE(becomesPlaced());
    EXPECT_EQ(m_placements, losses);
    EXPECT_EQ(m_lost, losses - 1);
    m_host->disappear();
    ASSERT_TRUE(becomesPlaced(false));
    EXPECT_EQ(m_lost, losses);
    EXPECT_FALSE(waitFor([&] { return m_missing > losses; }, patienceAfterLoss - 300ms));
    EXPECT_TRUE(waitFor([&] { return m_missing > losses; }));
  }
  EXPECT_FALSE(waitFor([this] { return m_missing > 3; }, patienceAfterLoss + 500ms));
  EXPECT_EQ(m_lost, 2);
  m_extra.setToolTip(u"Drift"_s);
}

TEST_F(TrayMenuBarExtraTest, ASessionMayBeGivenMoreTimeForItsBar) {
  startBusAndWatcher();
  int placements = 0;
  int missing = 0;
  TrayMenuBarExtra patient(m_connection, {.pointer = [] { return std::nullopt; },
                                          .embed = [](const auto&) { return nullptr; },
                                          .patienceAtStart = 4s});
  patient.show("icon.png", {.activated = [](Place) {},
                            .placed = [&] { ++placements; },
                            .lost = [] {},
                            .missing = [&] { ++missing; }});
  EXPECT_FALSE(waitFor([&] { return missing > 0; }, 3500ms));
  EXPECT_TRUE(waitFor([&] { return missing > 0; }));
  m_host->appear();
  EXPECT_TRUE(waitFor([&] { return placements > 0; }));
  EXPECT_EQ(placements, 1);
  EXPECT_EQ(missing, 1);
}

TEST_F(TrayMenuBarExtraTest, AnIconThatNeverHadAPlaceIsNotLost) {
  showEmbedded();
  EXPECT_TRUE(waitFor([this] { return m_missing > 0; }));
  EXPECT_FALSE(waitFor([this] { return m_lost > 0 || m_missing > 1; }, patienceAfterLoss + 500ms));
}

TEST_F(TrayMenuBarExtraTest, AHostThatCrashesRightAfterTheStartIsALossAsLater) {
  m_canEmbed = false;
  showOnHost();
  m_host->disappear();
  EXPECT_TRUE(waitFor([this] { return m_lost == 1; }));
  ASSERT_LT(m_sinceShown.elapsed(), 1500);
  QElapsedTimer sinceLoss;
  sinceLoss.start();
  EXPECT_TRUE(waitFor([this] { return m_missing > 0; }));
  // Later than the patience at the start would end. Timers may be a twentieth early.
  EXPECT_GT(sinceLoss.elapsed(), 2300);
  EXPECT_FALSE(waitFor([this] { return m_missing > 1; }, patienceAfterLoss));
  EXPECT_EQ(m_lost, 1);
}

TEST_F(TrayMenuBarExtraTest, ATrayOfTheEmbeddedIconMayGoAndComeBack) {
  showEmbedded();
  embedded().place();
  embedded().place(false);
  EXPECT_EQ(m_lost, 1);
  embedded().place();
  embedded().place();
  EXPECT_EQ(m_placements, 2);
  EXPECT_FALSE(waitFor([this] { return m_missing > 0; }, patienceAfterLoss + 500ms));
  EXPECT_EQ(m_lost, 1);
  embedded().place(false);
  EXPECT_EQ(m_lost, 2);
  EXPECT_TRUE(waitFor([this] { return m_missing == 1; }));
}

TEST_F(TrayMenuBarExtraTest, TheEmbeddedIconMayTakeOverAndGiveBackWithoutALoss) {
  m_placesEmbedded = true;
  showOnHost();
  m_host->disappear();
  ASSERT_TRUE(becomesPlaced(false));
  EXPECT_EQ(m_lost, 1);
  ASSERT_TRUE(isEmbedded());
  EXPECT_TRUE(m_extra.isPlaced());
  m_host->appear();
  EXPECT_TRUE(waitFor([this] { return m_embedded == nullptr; }));
  EXPECT_TRUE(m_extra.isPlaced());
  EXPECT_FALSE(waitFor([this] { return m_missing > 0; }, patienceAfterLoss));
  EXPECT_EQ(m_lost, 1);
}

TEST_F(TrayMenuBarExtraTest, ALostBusIsALossToo) {
  m_canEmbed = false;
  showOnHost();
  m_bus.kill();
  EXPECT_TRUE(waitFor([this] { return m_lost == 1; }));
  EXPECT_FALSE(m_extra.isPlaced());
  m_host.reset();
  startBusAndWatcher();
  m_host->appear();
  ASSERT_TRUE(becomesPlaced());
  EXPECT_TRUE(clickItem());
  EXPECT_FALSE(waitFor([this] { return m_missing > 0; }, patienceAfterLoss + 500ms));
  m_bus.kill();
  EXPECT_TRUE(waitFor([this] { return m_missing == 1; }));
  EXPECT_EQ(m_lost, 2);
}

}  // namespace
}  // namespace mireval
