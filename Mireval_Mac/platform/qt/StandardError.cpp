#include "platform/qt/StandardError.h"

#include "platform/qt/StandardDescriptors.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <string>

#include <unistd.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

/// The beginnings of messages about what is meant to be as it is.
constexpr std::array expectedMessages{
    // From Qt 6.8, which then corrects it: a Wayland layer learns the screen's fractional scale late.
    "The cached device pixel ratio value was stale on window "_L1,
    // Wayland's windows are drawn without OpenGL.
    "Failed to load client buffer integration: \"none\""_L1,
    "Available client buffer integrations:"_L1,
};

void writeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (std::ranges::any_of(expectedMessages, [&message](auto begin) { return message.startsWith(begin); })) {
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
