#include "platform/linux/tray/MockTrayHost.h"

#include "platform/linux/tray/StatusNotifierItem.h"

#include <QDBusError>
#include <QDBusVariant>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

const QString watcherName = QLatin1StringView(StatusNotifierItem::watcherName);
const QString watcherPath = QLatin1StringView(StatusNotifierItem::watcherPath);

}  // namespace

MockTrayHost::MockTrayHost(const QString& address)
    : m_watcher(address, watcherName, watcherPath),
      m_item(address, {{},
                       QLatin1StringView(StatusNotifierItem::objectPath),
                       QLatin1StringView(StatusNotifierItem::itemInterface)}) {
  setManner(Manner::polite);
}

void MockTrayHost::setManner(Manner manner) {
  m_manner = manner;
  m_watcher.answer = nullptr;
  if (manner != Manner::silent) {
    m_watcher.answer = [this](const QDBusMessage& call) { return answer(call); };
  }
}

void MockTrayHost::tellHostCame() {
  m_watcher.sendSignal(watcherName, u"StatusNotifierHostRegistered"_s, {});
}

void MockTrayHost::tellHostWent() {
  m_watcher.sendSignal(watcherName, u"StatusNotifierHostUnregistered"_s, {});
}

QStringList MockTrayHost::registrations() const {
  const QString start = u"RegisterStatusNotifierItem "_s;
  return calls().filter(start).replaceInStrings(start, QString());
}

BusClient& MockTrayHost::item() {
  const QStringList announced = registrations();
  m_item.setService(announced.value(announced.size() - 1));
  return m_item;
}

QDBusMessage MockTrayHost::answer(const QDBusMessage& call) const {
  if (m_manner == Manner::refusing) {
    return call.createErrorReply(QDBusError::AccessDenied, u"not you"_s);
  }
  if (m_manner == Manner::odd) {
    return call.createReply(QVariantList{QStringList{u"a list"_s}, 7});
  }
  return call.member() == u"Get"_s ? call.createReply(QVariant::fromValue(QDBusVariant(m_hasHost)))
                                   : call.createReply();
}

}  // namespace mireval
