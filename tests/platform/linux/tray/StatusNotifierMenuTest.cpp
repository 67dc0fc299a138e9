#include "platform/linux/tray/StatusNotifierMenu.h"

#include "platform/linux/bus/BusFixture.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QSignalSpy>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct MenuEvent {
  int id = 0;
  QString name;
};

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event) {
  argument.beginStructure();
  argument << event.id << event.name << QDBusVariant(0) << 0U;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event) {
  QDBusVariant data;
  uint timestamp = 0;
  argument.beginStructure();
  argument >> event.id >> event.name >> data >> timestamp;
  argument.endStructure();
  return argument;
}

QString readProperties(const QDBusArgument& argument) {
  QVariantMap properties;
  argument >> properties;
  QStringList words;
  for (auto property = properties.begin(); property != properties.end(); ++property) {
    words.append(property.key() + u'=' + property.value().toString());
  }
  return words.join(u',');
}

/// "id{name=value}[children]"
QString readLayout(const QDBusArgument& argument) {
  int id = 0;
  argument.beginStructure();
  argument >> id;
  const QString properties = readProperties(argument);
  QStringList children;
  argument.beginArray();
  while (!argument.atEnd()) {
    QDBusVariant child;
    argument >> child;
    children.append(readLayout(child.variant().value<QDBusArgument>()));
  }
  argument.endArray();
  argument.endStructure();
  return u"%1{%2}[%3]"_s.arg(QString::number(id), properties, children.join(u' '));
}

class StatusNotifierMenuTest : public BusFixture {
 protected:
  StatusNotifierMenuTest()
      : BusFixture({{},
                    QLatin1StringView(StatusNotifierMenu::objectPath),
                    QLatin1StringView(StatusNotifierMenu::interface)}) {
    QCoreApplication::setApplicationName(u"Mireval"_s);
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
    startBus();
    m_connection.attach(&m_menu, [this] { m_menu.appearOn(m_connection); });
    m_client->setService(QString::fromLatin1(m_connection.uniqueName()));
  }

  QDBusMessage call(const QString& method, const QVariantList& arguments) const {
    return m_client->call(method, arguments);
  }

  bool isRefused(const QString& method, const QVariantList& arguments) const {
    return m_client->error(method, arguments) == u"org.freedesktop.DBus.Error.InvalidArgs"_s;
  }

  QString layout(int parent, int depth, const QStringList& names = {}) const {
    const QDBusMessage answer = call(u"GetLayout"_s, {parent, depth, names});
    EXPECT_EQ(answer.signature(), u"u(ia{sv}av)"_s);
    return readLayout(answer.arguments().value(1).value<QDBusArgument>());
  }

  QStringList groupProperties(const QList<int>& ids, const QStringList& names = {}) const {
    const QDBusMessage answer = call(u"GetGroupProperties"_s, {QVariant::fromValue(ids), names});
    EXPECT_EQ(answer.signature(), u"a(ia{sv})"_s);
    const auto argument = answer.arguments().value(0).value<QDBusArgument>();
    QStringList items;
    argument.beginArray();
    while (!argument.atEnd()) {
      int id = 0;
      argument.beginStructure();
      argument >> id;
      items.append(u"%1{%2}"_s.arg(QString::number(id), readProperties(argument)));
      argument.endStructure();
    }
    argument.endArray();
    return items;
  }

  /// The ids that were not known.
  QList<int> sendEvents(const QList<MenuEvent>& events) const {
    const QDBusMessage answer = call(u"EventGroup"_s, {QVariant::fromValue(events)});
    EXPECT_EQ(answer.signature(), u"ai"_s);
    return qdbus_cast<QList<int>>(answer.arguments().value(0));
  }

  static QVariantList event(int id, const QString& name) {
    return {id, name, QVariant::fromValue(QDBusVariant(0)), 0U};
  }

  StatusNotifierMenu m_menu;
  QSignalSpy m_choices{&m_menu, &StatusNotifierMenu::chosen};
};

TEST_F(StatusNotifierMenuTest, HasOneEntry) {
  EXPECT_EQ(layout(0, -1), u"0{children-display=submenu}[1{label=Mireval}[]]"_s);
  EXPECT_EQ(layout(0, 1), layout(0, -1));
  EXPECT_EQ(layout(0, 0), u"0{children-display=submenu}[]"_s);
  EXPECT_EQ(layout(1, -1), u"1{label=Mireval}[]"_s);
}

TEST_F(StatusNotifierMenuTest, TellsThePropertiesThatAreAskedFor) {
  EXPECT_EQ(layout(0, -1, {u"enabled"_s, u"label"_s}), u"0{}[1{label=Mireval}[]]"_s);
  EXPECT_EQ(layout(0, -1, {u"enabled"_s}), u"0{}[1{}[]]"_s);
  EXPECT_EQ(groupProperties({1}), QStringList{u"1{label=Mireval}"_s});
  EXPECT_EQ(groupProperties({}), (QStringList{u"0{children-display=submenu}"_s, u"1{label=Mireval}"_s}));
  EXPECT_EQ(groupProperties({7, 1, -1}, {u"label"_s}), QStringList{u"1{label=Mireval}"_s});
  EXPECT_EQ(groupProperties({7}), QStringList());
  EXPECT_EQ(call(u"GetProperty"_s, {1, u"label"_s}).arguments().value(0).value<QDBusVariant>().variant(),
            u"Mireval"_s);
}

TEST_F(StatusNotifierMenuTest, DescribesItself) {
  EXPECT_EQ(m_client->properties(), (QVariantMap{{u"IconThemePath"_s, QStringList()},
                                                 {u"Status"_s, u"normal"_s},
                                                 {u"TextDirection"_s, u"ltr"_s},
                                                 {u"Version"_s, 3U}}));
}

TEST_F(StatusNotifierMenuTest, IntrospectionNamesTheArguments) {
  EXPECT_EQ(m_client->membersWithArguments(),
            (QStringList{
                u"GetLayout(i parentId, i recursionDepth, as propertyNames, u revision, (ia{sv}av) layout)"_s,
                u"GetGroupProperties(ai ids, as propertyNames, a(ia{sv}) properties)"_s,
                u"GetProperty(i id, s name, v value)"_s, u"Event(i id, s eventId, v data, u timestamp)"_s,
                u"EventGroup(a(isvu) events, ai idErrors)"_s, u"AboutToShow(i id, b needUpdate)"_s,
                u"AboutToShowGroup(ai ids, ai updatesNeeded, ai idErrors)"_s,
                u"ItemsPropertiesUpdated(a(ia{sv}) updatedProps, a(ias) removedProps)"_s,
                u"LayoutUpdated(u revision, i parent)"_s, u"ItemActivationRequested(i id, u timestamp)"_s}));
}

TEST_F(StatusNotifierMenuTest, ItsEntryIsChosenByAClick) {
  EXPECT_EQ(m_client->error(u"Event"_s, event(1, u"clicked"_s)), QString());
  EXPECT_EQ(m_choices.size(), 1);
  EXPECT_EQ(sendEvents({{1, u"hovered"_s}, {1, u"clicked"_s}, {0, u"closed"_s}}), QList<int>());
  EXPECT_EQ(m_choices.size(), 2);
}

TEST_F(StatusNotifierMenuTest, NothingElseIsAChoice) {
  for (const QString& name : {u"opened"_s, u"closed"_s, u"hovered"_s, u""_s, u"Clicked"_s}) {
    EXPECT_EQ(m_client->error(u"Event"_s, event(1, name)), QString());
  }
  EXPECT_EQ(m_client->error(u"Event"_s, event(0, u"clicked"_s)), QString());
  EXPECT_EQ(sendEvents({{1, u"hovered"_s}, {0, u"clicked"_s}}), QList<int>());
  EXPECT_EQ(sendEvents({}), QList<int>());
  EXPECT_EQ(m_choices.size(), 0);
}

TEST_F(StatusNotifierMenuTest, OneGroupOfEventsIsOneChoiceAtMost) {
  sendEvents({{1, u"clicked"_s}, {1, u"clicked"_s}});
  EXPECT_EQ(m_choices.size(), 1);
}

TEST_F(StatusNotifierMenuTest, IsAlwaysUpToDate) {
  for (const int id : {0, 1}) {
    EXPECT_EQ(call(u"AboutToShow"_s, {id}).arguments(), QVariantList{false});
  }
  const QDBusMessage answer = call(u"AboutToShowGroup"_s, {QVariant::fromValue(QList<int>{0, 5, 1, 7})});
  EXPECT_EQ(answer.signature(), u"aiai"_s);
  EXPECT_EQ(qdbus_cast<QList<int>>(answer.arguments().value(0)), QList<int>());
  EXPECT_EQ(qdbus_cast<QList<int>>(answer.arguments().value(1)), (QList<int>{5, 7}));
}

TEST_F(StatusNotifierMenuTest, UnknownItemsAreRefused) {
  for (const int id : {-1, 2, 7}) {
    EXPECT_TRUE(isRefused(u"GetLayout"_s, {id, -1, QStringList()}));
    EXPECT_TRUE(isRefused(u"GetProperty"_s, {id, u"label"_s}));
    EXPECT_TRUE(isRefused(u"Event"_s, event(id, u"clicked"_s)));
    EXPECT_TRUE(isRefused(u"AboutToShow"_s, {id}));
    EXPECT_TRUE(isRefused(u"AboutToShowGroup"_s, {QVariant::fromValue(QList<int>{id, id})}));
    EXPECT_TRUE(isRefused(u"EventGroup"_s,
                          {QVariant::fromValue(QList<MenuEvent>{{id, u"clicked"_s}, {id, u"clicked"_s}})}));
  }
  EXPECT_TRUE(isRefused(u"GetProperty"_s, {1, u"children-display"_s}));
  EXPECT_EQ(sendEvents({{7, u"clicked"_s}, {1, u"opened"_s}, {8, u"clicked"_s}}), (QList<int>{7, 8}));
  EXPECT_EQ(m_choices.size(), 0);
  EXPECT_EQ(sendEvents({{7, u"clicked"_s}, {1, u"clicked"_s}}), QList<int>{7});
  EXPECT_EQ(m_choices.size(), 1);
}

}  // namespace
}  // namespace mireval
