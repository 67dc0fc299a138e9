#pragma once

#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/bus/PrivateBus.h"
#include "platform/linux/bus/WaitFor.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <optional>

namespace mireval {

/// An application, a message bus that is not started yet, our connection to it, and a client.
class BusFixture : public testing::Test {
 protected:
  explicit BusFixture(MessageBus::Kind kind = MessageBus::Kind::session);
  ~BusFixture() override;

  /// Starts the bus and connects the client.
  void startBus();

  /// Sends a call of the client, which starts no service, and waits for the answer.
  QDBusMessage call(const QString& service, const QString& path, const QString& interface,
                    const QString& method, const QVariantList& arguments = {}) const;
  QDBusMessage callBus(const QString& method, const QVariantList& arguments = {}) const;
  bool hasOwner(const QString& name) const;

  int m_argumentCount = 3;
  char m_programName[5] = "test";
  char m_option[10] = "-platform";
  char m_platform[10] = "offscreen";
  char* m_arguments[4] = {m_programName, m_option, m_platform, nullptr};
  PrivateBus m_bus;
  QGuiApplication m_application{m_argumentCount, m_arguments};
  MessageBus m_connection;
  std::optional<QDBusConnection> m_client;
};

}  // namespace mireval
