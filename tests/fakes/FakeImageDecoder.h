#pragma once

#include "fakes/EventLog.h"
#include "platform/ImageDecoder.h"

#include <QSize>

#include <map>
#include <memory>
#include <string>

namespace mireval {

/// Every file holds a picture of 640 by 640 pixels, of a colour of its own, unless the test says otherwise.
/// Events: "decoder: thumbnail <file name> <maximum>" and "decoder: image <file name>".
class FakeImageDecoder final : public ImageDecoder {
 public:
  enum class Failure { none, thumbnail, everything };

  explicit FakeImageDecoder(std::shared_ptr<EventLog> log = makeEventLog());

  /// All three take the file's name without its folder.
  void setSize(const std::string& name, QSize size) { m_files[name].size = size; }
  void fail(const std::string& name, Failure failure) { m_files[name].failure = failure; }
  /// How often the file was decoded with success.
  int decodings(const std::string& name) const;

  QImage thumbnail(const std::filesystem::path& file, double maxPixelSize) override;
  QImage image(const std::filesystem::path& file) override;

 private:
  struct File {
    QSize size{640, 640};
    Failure failure = Failure::none;
    int decodings = 0;
  };

  QImage decode(const std::filesystem::path& file, QSize size);

  const std::shared_ptr<EventLog> m_log;
  std::map<std::string, File> m_files;
};

}  // namespace mireval
