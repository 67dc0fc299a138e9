#include "platform/qt/StandardError.h"

#include "platform/qt/StandardDescriptors.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <string>

#include <unistd.h>

namespace mireval {
namespace {

void writeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  writeWithoutBlocking(STDERR_FILENO, qFormatLogMessage(type, context, message).toStdString() + '\n');
}

}  // namespace

void StandardError::say(std::string_view text) {
  writeWithoutBlocking(STDERR_FILENO, "mireval: " + std::string(text) + '\n');
}

void StandardError::takeQtMessages() {
  qInstallMessageHandler(writeQtMessage);
}

}  // namespace mireval
