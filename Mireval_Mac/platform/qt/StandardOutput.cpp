#include "platform/qt/StandardOutput.h"

#include "platform/qt/StandardDescriptors.h"

#include <QByteArray>

#include <unistd.h>

namespace mireval {

void StandardOutput::writeLine(QStringView line) {
  const QByteArray bytes = line.toUtf8() + '\n';
  writeWithoutBlocking(STDOUT_FILENO, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace mireval
