#include "platform/linux/bus/BusFixture.h"

#include <QDir>
#include <QFile>

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

BusFixture::BusFixture(BusClient::Object object, MessageBus::Kind kind)
    : m_object(std::move(object)), m_bus(kind), m_connection(kind) {}

void BusFixture::startBus() {
  m_bus.start();
  m_client.emplace(m_bus.address(), m_object);
}

QString BusFixture::startBusThatStarts(const QString& name) {
  QString started = m_folder.filePath(u"started"_s);
  QDir(m_folder.path()).mkpath(u"dbus-1/services"_s);
  QFile service(m_folder.filePath(u"dbus-1/services/test.service"_s));
  EXPECT_TRUE(service.open(QIODevice::WriteOnly));
  service.write(
      u"[D-BUS Service]\nName=%1\nExec=/bin/sh -c 'touch %2; exit 1'\n"_s.arg(name, started).toUtf8());
  service.close();
  qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
  startBus();
  qunsetenv("XDG_DATA_HOME");
  return started;
}

}  // namespace mireval
