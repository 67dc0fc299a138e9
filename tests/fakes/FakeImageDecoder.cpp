#include "fakes/FakeImageDecoder.h"

#include <QHashFunctions>

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeImageDecoder::FakeImageDecoder(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

int FakeImageDecoder::decodings(const std::string& name) const {
  const auto found = m_files.find(name);
  return found != m_files.end() ? found->second.decodings : 0;
}

QImage FakeImageDecoder::thumbnail(const std::filesystem::path& file, double maxPixelSize) {
  const std::string name = file.filename();
  m_log->add("decoder: thumbnail "_L1 + QString::fromStdString(name) + QLatin1Char(' ') +
             eventNumber(maxPixelSize));
  File& content = m_files[name];
  if (content.failure != Failure::none) {
    return {};
  }
  const int bound = static_cast<int>(maxPixelSize);
  const QSize size = content.size;
  const bool fits = size.width() <= bound && size.height() <= bound;
  return decode(file, fits ? size : size.scaled(bound, bound, Qt::KeepAspectRatio));
}

QImage FakeImageDecoder::image(const std::filesystem::path& file) {
  const std::string name = file.filename();
  m_log->add("decoder: image "_L1 + QString::fromStdString(name));
  File& content = m_files[name];
  return content.failure != Failure::everything ? decode(file, content.size) : QImage();
}

QImage FakeImageDecoder::decode(const std::filesystem::path& file, QSize size) {
  const std::string name = file.filename();
  ++m_files[name].decodings;
  QImage image(size, QImage::Format_RGB32);
  image.fill(static_cast<uint>(qHash(QByteArray::fromStdString(name), 0)));
  return image;
}

}  // namespace mireval
