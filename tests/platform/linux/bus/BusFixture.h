#pragma once

#include "platform/linux/bus/BusClient.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/bus/PrivateBus.h"
#include "platform/linux/bus/WaitFor.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace mireval {

/// An application, a message bus that is not started yet, our connection to it, and a client.
class BusFixture : public testing::Test {
 protected:
  /// The object is the one that the client calls.
  explicit BusFixture(BusClient::Object object = {}, MessageBus::Kind kind = MessageBus::Kind::session);

  /// Starts the bus and connects the client.
  void startBus();

  /// The same; the bus can start a service of this name. When it does so, the file exists whose path is
  /// returned, and the service fails.
  QString startBusThatStarts(const QString& name);

  int m_argumentCount = 3;
  char m_programName[5] = "test";
  char m_option[10] = "-platform";
  char m_platform[10] = "offscreen";
  char* m_arguments[4] = {m_programName, m_option, m_platform, nullptr};
  const BusClient::Object m_object;
  const QTemporaryDir m_folder;
  PrivateBus m_bus;
  QGuiApplication m_application{m_argumentCount, m_arguments};
  MessageBus m_connection;
  std::optional<BusClient> m_client;
};

}  // namespace mireval
