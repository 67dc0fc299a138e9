#include "platform/qt/StandardError.h"

#include "platform/qt/StandardDescriptors.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <string>

#include <unistd.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

void writeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  // Qt 6.8 says so, and then corrects it, when a Wayland layer learns the screen's fractional scale.
  if (message.startsWith("The cached device pixel ratio value was stale on window expose."_L1)) {
    return;
  }
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
