#include "platform/qt/StandardOutput.h"

#include <QByteArray>

#include <cstdio>

namespace mireval {

void StandardOutput::writeLine(QStringView line) {
  const QByteArray bytes = line.toUtf8() + '\n';
  std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
  std::fflush(stdout);
}

}  // namespace mireval
