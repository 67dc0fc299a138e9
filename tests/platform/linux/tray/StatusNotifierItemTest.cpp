#include "platform/linux/tray/StatusNotifierItem.h"

#include "platform/linux/bus/BusFixture.h"
#include "platform/linux/tray/MockTrayHost.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QTimer>

#include <sys/prctl.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Placement = StatusNotifierItem::Placement;
using Manner = MockTrayHost::Manner;

const QString invalidArguments = u"org.freedesktop.DBus.Error.InvalidArgs"_s;
const QString unknownMethod = u"org.freedesktop.DBus.Error.UnknownMethod"_s;

struct Pixmap {
  int width = 0;
  int height = 0;
  QByteArray bytes;
};

QList<Pixmap> pixmaps(const QDBusArgument& argument) {
  QList<Pixmap> pixmaps;
  argument.beginArray();
  while (!argument.atEnd()) {
    Pixmap pixmap;
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    pixmaps.append(pixmap);
  }
  argument.endArray();
  return pixmaps;
}

QList<Pixmap> pixmaps(const QVariant& property) {
  return pixmaps(property.value<QDBusArgument>());
}

/// "icon|number of pixmaps|title|text"
QString toolTip(const QVariant& property) {
  const auto argument = property.value<QDBusArgument>();
  QString icon;
  QString title;
  QString text;
  argument.beginStructure();
  argument >> icon;
  const qsizetype count = pixmaps(argument).size();
  argument >> title >> text;
  argument.endStructure();
  return u"%1|%2|%3|%4"_s.arg(icon).arg(count).arg(title, text);
}

class StatusNotifierItemTest : public BusFixture {
 protected:
  using Tokens = StatusNotifierItem::ActivationTokens;

  StatusNotifierItemTest() {
    QCoreApplication::setApplicationName(u"Mireval"_s);
    qunsetenv("XDG_ACTIVATION_TOKEN");
  }

  ~StatusNotifierItemTest() override { callThisProcess("tray_tests"); }

  /// What the bus's clients see as the name of this process.
  static void callThisProcess(const char* name) { prctl(PR_SET_NAME, name); }

  QString imageFile() const { return m_folder.filePath(u"icon.png"_s); }

  void makeHost() { m_host = std::make_unique<MockTrayHost>(m_bus.address()); }

  void makeItem(const QString& image = {}, Tokens tokens = Tokens::wanted) {
    m_item = std::make_unique<StatusNotifierItem>(
        m_connection, (image.isEmpty() ? imageFile() : image).toStdString(), tokens);
    m_changes = std::make_unique<QSignalSpy>(m_item.get(), &StatusNotifierItem::placementChanged);
    QObject::connect(m_item.get(), &StatusNotifierItem::activated, m_item.get(),
                     [this](std::optional<QPoint> told) {
                       m_toldAt.push_back(told);
                       m_tokens.append(qgetenv("XDG_ACTIVATION_TOKEN"));
                     });
  }

  void startBusHostAndItem(Manner manner, const QString& image = {}, Tokens tokens = Tokens::wanted) {
    startBus();
    makeHost();
    m_host->setManner(manner);
    m_host->appear();
    makeItem(image, tokens);
    m_item->appear();
  }

  /// An item that a host shows.
  void settle(const QString& image = {}, Tokens tokens = Tokens::wanted) {
    startBusHostAndItem(Manner::polite, image, tokens);
    ASSERT_TRUE(becomes(Placement::placed));
  }

  bool becomes(Placement placement) {
    return waitFor([this, placement] { return m_item->placement() == placement; });
  }

  /// The host goes, and one of that name comes.
  bool isReplacedBy(const char* process) {
    m_host->disappear();
    const bool gone = becomes(Placement::nowhere);
    callThisProcess(process);
    m_host->appear();
    return gone && becomes(Placement::placed);
  }

  bool stays(Placement placement) {
    return !waitFor([this, placement] { return m_item->placement() != placement; }, 100ms);
  }

  bool isAsked(qsizetype calls) {
    return waitFor([this, calls] { return m_host->calls().size() == calls; });
  }

  QString call(const QString& method, const QVariantList& arguments = {}) {
    return m_host->item().error(method, arguments);
  }

  std::unique_ptr<MockTrayHost> m_host;
  std::unique_ptr<StatusNotifierItem> m_item;
  std::unique_ptr<QSignalSpy> m_changes;
  std::vector<std::optional<QPoint>> m_toldAt;
  QByteArrayList m_tokens;
};

TEST_F(StatusNotifierItemTest, RegistersByTheNameOfItsConnection) {
  settle();
  const QStringList registrations = m_host->registrations();
  ASSERT_EQ(registrations.size(), 1);
  EXPECT_TRUE(registrations.first().startsWith(u':'));
  EXPECT_EQ(call(u"Scroll"_s, {1, u"vertical"_s}), QString());
  const QString asksForHost = u"Get org.kde.StatusNotifierWatcher IsStatusNotifierHostRegistered"_s;
  EXPECT_EQ(
      m_host->calls(),
      (QStringList{asksForHost, u"RegisterStatusNotifierItem "_s + registrations.first(), asksForHost}));
  EXPECT_EQ(m_changes->size(), 1);
}

TEST_F(StatusNotifierItemTest, RegistersWithEachNewOwner) {
  settle();
  for (int i = 2; i <= 20; ++i) {
    m_host->disappear();
    ASSERT_TRUE(becomes(Placement::nowhere)) << i;
    m_host->appear();
    ASSERT_TRUE(becomes(Placement::placed)) << i;
    EXPECT_EQ(m_host->registrations().size(), i);
  }
  EXPECT_EQ(m_changes->size(), 39);
  // A watcher of another process, also if it comes before the loss of the first is noticed.
  m_host = nullptr;
  makeHost();
  m_host->appear();
  ASSERT_TRUE(isAsked(3));
  EXPECT_TRUE(becomes(Placement::placed));
  EXPECT_EQ(m_host->registrations().size(), 1);
}

TEST_F(StatusNotifierItemTest, AWatcherWithoutAHostPlacesNothing) {
  startBus();
  makeHost();
  m_host->setHasHost(false);
  m_host->appear();
  makeItem();
  m_item->appear();
  EXPECT_TRUE(becomes(Placement::nowhere));
  m_host->tellHostWent();
  ASSERT_TRUE(isAsked(2));
  EXPECT_TRUE(stays(Placement::nowhere));
  // A host that starts may miss an item that registers before it.
  EXPECT_EQ(m_host->registrations(), QStringList());
  m_host->setHasHost(true);
  m_host->tellHostCame();
  EXPECT_TRUE(becomes(Placement::placed));
  ASSERT_TRUE(isAsked(5));
  // One of two hosts is enough.
  m_host->tellHostWent();
  ASSERT_TRUE(isAsked(6));
  EXPECT_TRUE(stays(Placement::placed));
  m_host->setHasHost(false);
  m_host->tellHostWent();
  EXPECT_TRUE(becomes(Placement::nowhere));
  EXPECT_EQ(m_host->registrations().size(), 1);
  EXPECT_EQ(m_changes->size(), 3);
}

TEST_F(StatusNotifierItemTest, AWatcherThatDoesNotKnowOfHostsHasOne) {
  for (const Manner manner : {Manner::refusing, Manner::odd}) {
    settle();
    m_host->setHasHost(false);
    m_host->tellHostWent();
    ASSERT_TRUE(becomes(Placement::nowhere));
    m_host->setManner(manner);
    m_host->tellHostCame();
    EXPECT_TRUE(becomes(Placement::placed));
    m_item.reset();
    m_host.reset();
    m_bus.kill();
  }
}

TEST_F(StatusNotifierItemTest, AWatcherThatRefusesTheItemDoesNotShowIt) {
  startBusHostAndItem(Manner::refusing);
  EXPECT_TRUE(becomes(Placement::nowhere));
  m_host->setManner(Manner::polite);
  m_host->tellHostCame();
  EXPECT_TRUE(stays(Placement::nowhere));
  EXPECT_EQ(m_host->calls().size(), 2);
  m_host->disappear();
  m_host->appear();
  EXPECT_TRUE(becomes(Placement::placed));
}

TEST_F(StatusNotifierItemTest, ASilentWatcherIsWaitedFor) {
  startBusHostAndItem(Manner::silent);
  ASSERT_TRUE(isAsked(1));
  m_host->tellHostCame();
  EXPECT_TRUE(stays(Placement::unknown));
  EXPECT_EQ(m_host->calls().size(), 1);
  m_host->setManner(Manner::polite);
  m_host->answerWaiting();
  EXPECT_TRUE(becomes(Placement::placed));
}

TEST_F(StatusNotifierItemTest, TheAnswerOfAWatcherThatHasGoneCountsForNothing) {
  startBusHostAndItem(Manner::silent);
  ASSERT_TRUE(isAsked(1));
  m_host->disappear();
  ASSERT_TRUE(becomes(Placement::nowhere));
  m_host->setManner(Manner::polite);
  m_host->answerWaiting();
  EXPECT_TRUE(stays(Placement::nowhere));
  EXPECT_EQ(m_host->calls().size(), 1);
}

TEST_F(StatusNotifierItemTest, NoWatcherIsStarted) {
  const QString watcher = u"org.kde.StatusNotifierWatcher"_s;
  const QString started = startBusThatStarts(watcher);
  makeItem();
  m_item->appear();
  EXPECT_TRUE(becomes(Placement::nowhere));
  EXPECT_FALSE(waitFor([&started] { return QFile::exists(started); }, 200ms));
  // The bus can start it.
  m_client->askBus(u"StartServiceByName"_s, {watcher, 0U});
  EXPECT_TRUE(waitFor([&started] { return QFile::exists(started); }));
}

TEST_F(StatusNotifierItemTest, WithoutABusItIsNowhereAtOnce) {
  makeItem();
  EXPECT_EQ(m_item->placement(), Placement::unknown);
  m_item->appear();
  EXPECT_TRUE(becomes(Placement::nowhere));
  m_item->setToolTip(u"Drift"_s);
}

// A limit against hanging, not a measurement.
TEST_F(StatusNotifierItemTest, AFrozenBusHoldsNothingUp) {
  startBus();
  makeHost();
  m_host->appear();
  m_bus.freeze();
  QElapsedTimer timer;
  timer.start();
  makeItem();
  m_item->appear();
  for (int i = 0; i < 100; ++i) {
    m_item->setToolTip(QString::number(i));
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(m_item->placement(), Placement::unknown);
  EXPECT_LT(timer.elapsed(), 5000);
  m_bus.thaw();
  EXPECT_TRUE(becomes(Placement::placed));
}

TEST_F(StatusNotifierItemTest, ComesBackWithTheBus) {
  settle();
  m_bus.kill();
  m_host.reset();
  ASSERT_TRUE(becomes(Placement::nowhere));
  m_item->setToolTip(u"Drift"_s);
  EXPECT_TRUE(stays(Placement::nowhere));
  startBus();
  makeHost();
  m_host->appear();
  ASSERT_TRUE(becomes(Placement::placed));
  EXPECT_EQ(call(u"Activate"_s, {7, 1}), QString());
  EXPECT_EQ(m_toldAt.back(), QPoint(7, 1));
}

TEST_F(StatusNotifierItemTest, DescribesItself) {
  settle();
  m_item->setToolTip(u"Drift"_s);
  const QVariantMap properties = m_host->item().properties();
  EXPECT_EQ(properties.keys(),
            (QStringList{u"AttentionIconName"_s, u"AttentionIconPixmap"_s, u"AttentionMovieName"_s,
                         u"Category"_s, u"IconName"_s, u"IconPixmap"_s, u"IconThemePath"_s, u"Id"_s,
                         u"ItemIsMenu"_s, u"Menu"_s, u"OverlayIconName"_s, u"OverlayIconPixmap"_s,
                         u"Status"_s, u"Title"_s, u"ToolTip"_s, u"WindowId"_s}));
  for (const QString& name : {u"AttentionIconName"_s, u"AttentionMovieName"_s, u"OverlayIconName"_s,
                              u"IconName"_s, u"IconThemePath"_s}) {
    EXPECT_EQ(properties.value(name), QVariant(QString(u""_s))) << name.toStdString();
  }
  for (const QString& name : {u"AttentionIconPixmap"_s, u"OverlayIconPixmap"_s, u"IconPixmap"_s}) {
    EXPECT_EQ(properties.value(name).value<QDBusArgument>().currentSignature(), u"a(iiay)"_s);
    EXPECT_TRUE(pixmaps(properties.value(name)).empty()) << name.toStdString();
  }
  EXPECT_EQ(properties.value(u"Category"_s), u"ApplicationStatus"_s);
  EXPECT_EQ(properties.value(u"Id"_s), u"mireval"_s);
  EXPECT_EQ(properties.value(u"Title"_s), u"Mireval"_s);
  EXPECT_EQ(properties.value(u"Status"_s), u"Active"_s);
  EXPECT_EQ(properties.value(u"WindowId"_s), QVariant(0));
  EXPECT_EQ(properties.value(u"ItemIsMenu"_s), QVariant(false));
  EXPECT_EQ(properties.value(u"Menu"_s).value<QDBusObjectPath>().path(), u"/StatusNotifierMenu"_s);
  EXPECT_EQ(toolTip(properties.value(u"ToolTip"_s)), u"|0|Mireval|Drift"_s);
}

TEST_F(StatusNotifierItemTest, ItsPixmapsAreTheImageInEachSize) {
  QImage image(96, 96, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  for (int y = 0; y < 96; ++y) {
    for (int x = 0; x < 48; ++x) {
      image.setPixel(x, y, y < 48 ? qRgba(10, 20, 30, 255) : qRgba(200, 100, 40, 128));
    }
  }
  ASSERT_TRUE(image.save(imageFile()));
  settle();
  QStringList sizes;
  for (const Pixmap& pixmap : pixmaps(m_host->item().properties().value(u"IconPixmap"_s))) {
    sizes.append(u"%1x%2"_s.arg(pixmap.width).arg(pixmap.height));
    ASSERT_EQ(pixmap.bytes.size(), qsizetype{4} * pixmap.width * pixmap.height);
    const auto pixel = [&pixmap](int x, int y) {
      return pixmap.bytes.mid(4 * (qsizetype{y} * pixmap.width + x), 4).toHex();
    };
    EXPECT_EQ(pixel(1, 1), "ff0a141e");
    EXPECT_EQ(pixel(1, pixmap.height - 2).left(2), "80");
    EXPECT_NEAR(pixel(1, pixmap.height - 2).mid(2, 2).toInt(nullptr, 16), 200, 1);
    EXPECT_EQ(pixel(pixmap.width - 2, 1).left(2), "00");
  }
  EXPECT_EQ(sizes, (QStringList{u"16x16"_s, u"22x22"_s, u"24x24"_s, u"32x32"_s, u"48x48"_s, u"64x64"_s}));
}

TEST_F(StatusNotifierItemTest, TheThemeBesideTheImageHasTheIconByName) {
  ASSERT_TRUE(QDir(m_folder.path()).mkpath(u"icons/hicolor/scalable/apps"_s));
  QFile icon(m_folder.filePath(u"icons/hicolor/scalable/apps/mireval.svg"_s));
  ASSERT_TRUE(icon.open(QIODevice::WriteOnly));
  settle(QDir::current().relativeFilePath(imageFile()));
  const QVariantMap properties = m_host->item().properties();
  EXPECT_EQ(properties.value(u"IconName"_s), u"mireval"_s);
  EXPECT_TRUE(QDir::isAbsolutePath(properties.value(u"IconThemePath"_s).toString()));
  EXPECT_EQ(QDir(properties.value(u"IconThemePath"_s).toString()).canonicalPath(),
            QDir(m_folder.filePath(u"icons"_s)).canonicalPath());
  EXPECT_EQ(toolTip(properties.value(u"ToolTip"_s)), u"mireval|0|Mireval|"_s);
}

TEST_F(StatusNotifierItemTest, KnowsTheHostByItsProcess) {
  settle();
  const TrayHost::Click inACorner{.told = QPoint(1, 1), .pointer = std::nullopt};
  for (const std::string_view name : {"waybar", "swaybar", "xfce4-panel"}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(isReplacedBy(name.data()));
    const bool needsMenu = m_item->host().needsMenu();
    EXPECT_EQ(needsMenu, name == "xfce4-panel");
    EXPECT_EQ(m_host->item().property(u"Menu"_s).isValid(), needsMenu);
    const QVariantMap properties = m_host->item().properties();
    EXPECT_EQ(properties.contains(u"Menu"_s), needsMenu);
    EXPECT_EQ(properties.size(), needsMenu ? 16 : 15);
    EXPECT_EQ(m_item->host().placeOf(inACorner).has_value(), name == "swaybar");
  }
}

TEST_F(StatusNotifierItemTest, EachKindOfClickActivatesIt) {
  settle();
  for (const QString& method : {u"Activate"_s, u"SecondaryActivate"_s, u"ContextMenu"_s}) {
    m_toldAt.clear();
    EXPECT_EQ(call(method, {1155, -13}), QString());
    ASSERT_EQ(m_toldAt.size(), 1) << method.toStdString();
    EXPECT_EQ(m_toldAt.front(), QPoint(1155, -13)) << method.toStdString();
  }
  m_toldAt.clear();
  EXPECT_EQ(call(u"Scroll"_s, {120, u"Vertical"_s}), QString());
  EXPECT_TRUE(m_toldAt.empty());
}

TEST_F(StatusNotifierItemTest, IntrospectionNamesTheArguments) {
  settle();
  EXPECT_EQ(
      m_host->item().membersWithArguments(),
      (QStringList{u"Activate(i x, i y)"_s, u"SecondaryActivate(i x, i y)"_s, u"ContextMenu(i x, i y)"_s,
                   u"Scroll(i delta, s orientation)"_s, u"ProvideXdgActivationToken(s token)"_s}));
}

TEST_F(StatusNotifierItemTest, WrongCallsAreRefused) {
  settle();
  for (const QVariantList& arguments :
       {QVariantList{}, {u"1155"_s, 13}, {1155}, {1155, 13, 7}, {1155U, 13U}, {QVariantMap{{u"x"_s, 1}}}}) {
    EXPECT_EQ(call(u"Activate"_s, arguments), invalidArguments);
  }
  EXPECT_EQ(call(u"ProvideXdgActivationToken"_s, {7}), invalidArguments);
  EXPECT_EQ(call(u"Quit"_s), unknownMethod);
  EXPECT_TRUE(m_toldAt.empty());
  EXPECT_EQ(call(u"Activate"_s, {1, 2}), QString());
  EXPECT_EQ(m_toldAt.size(), 1);
}

TEST_F(StatusNotifierItemTest, TheMenusEntryActivatesItToo) {
  settle();
  const BusClient::Object menu{m_host->registrations().last(), u"/StatusNotifierMenu"_s,
                               u"com.canonical.dbusmenu"_s};
  EXPECT_EQ(
      errorIn(m_client->call(menu, u"Event"_s, {1, u"clicked"_s, QVariant::fromValue(QDBusVariant(0)), 0U})),
      QString());
  ASSERT_EQ(m_toldAt.size(), 1);
  EXPECT_EQ(m_toldAt.front(), std::nullopt);
}

TEST_F(StatusNotifierItemTest, ATokenIsThereForOneActivation) {
  settle();
  call(u"Activate"_s, {1, 2});
  call(u"ProvideXdgActivationToken"_s, {u"first"_s});
  call(u"ProvideXdgActivationToken"_s, {u"second"_s});
  EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
  call(u"Activate"_s, {1, 2});
  EXPECT_EQ(m_tokens, (QByteArrayList{"", "second"}));
  // Who activates a window with it takes it away.
  qunsetenv("XDG_ACTIVATION_TOKEN");
  call(u"Activate"_s, {1, 2});
  EXPECT_EQ(m_tokens.last(), "");
}

TEST_F(StatusNotifierItemTest, AsksForNoTokenThatNobodyUsesUp) {
  settle({}, Tokens::unwanted);
  EXPECT_EQ(call(u"ProvideXdgActivationToken"_s, {u"first"_s}), unknownMethod);
  EXPECT_EQ(call(u"Activate"_s, {1, 2}), QString());
  EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(StatusNotifierItemTest, TellsNewToolTipsOnly) {
  startBus();
  makeHost();
  makeItem();
  m_item->setToolTip(u"before"_s);
  m_item->appear();
  ASSERT_TRUE(becomes(Placement::nowhere));
  m_item->setToolTip(u"still nowhere"_s);
  m_host->appear();
  ASSERT_TRUE(becomes(Placement::placed));
  EXPECT_EQ(m_host->item().takeSignals(), QStringList());
  m_item->setToolTip(u"still nowhere"_s);
  EXPECT_EQ(m_host->item().takeSignals(), QStringList());
  for (const QString& text : {u"Drift"_s, u"Drift"_s, u""_s, u""_s}) {
    m_item->setToolTip(text);
  }
  EXPECT_EQ(m_host->item().takeSignals(), (QStringList{u"NewToolTip"_s, u"NewToolTip"_s}));
}

TEST_F(StatusNotifierItemTest, HostsDoNotTakeToolTipsForMarkup) {
  settle();
  m_item->setToolTip(u"<b>Rain</b> & \"Fog\" 雨"_s);
  EXPECT_EQ(toolTip(m_host->item().property(u"ToolTip"_s)),
            u"|0|Mireval|&lt;b&gt;Rain&lt;/b&gt; &amp; &quot;Fog&quot; 雨"_s);
}

TEST_F(StatusNotifierItemTest, WhenNothingHappensNobodyIsWoken) {
  settle();
  m_item->setToolTip(u"Drift"_s);
  m_host->item().takeSignals();
  for (int i = 0; i < 100; ++i) {
    m_item->setToolTip(u"Drift"_s);
  }
  EXPECT_EQ(wakeUps(), 0);
  EXPECT_EQ(m_host->calls().size(), 3);
  EXPECT_EQ(m_host->item().takeSignals(), QStringList());
}

TEST_F(StatusNotifierItemTest, AFloodOfClicksLeavesTheEventLoopItsTurns) {
  settle();
  QDBusConnection connection = QDBusConnection::connectToBus(m_bus.address(), u"flood"_s);
  constexpr int clicks = 2000;
  QDBusMessage click =
      QDBusMessage::createMethodCall(m_host->registrations().last(), u"/StatusNotifierItem"_s,
                                     u"org.kde.StatusNotifierItem"_s, u"Activate"_s);
  click.setArguments({1, 1});
  for (int i = 0; i < clicks; ++i) {
    connection.send(click);
  }
  std::size_t handled = 0;
  std::size_t mostInATurn = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    mostInATurn = std::max(mostInATurn, m_toldAt.size() - std::exchange(handled, m_toldAt.size()));
  });
  timer.start(0ms);
  EXPECT_TRUE(waitFor([this] { return m_toldAt.size() == clicks; }));
  EXPECT_LE(mostInATurn, 200U);
  QDBusConnection::disconnectFromBus(u"flood"_s);
}

}  // namespace
}  // namespace mireval
