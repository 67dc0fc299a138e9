#include "platform/qt/IniUserDefaults.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr qsizetype largestFileInBytes = 1 << 20;
constexpr auto longestWaitForOthers = 1s;
constexpr auto pauseBetweenAttempts = 10ms;

constexpr QByteArrayView byteOrderMark = "\xEF\xBB\xBF";
constexpr QByteArrayView generalSection = "[General]";

/// What a text must not contain if it is to stand without quotes.
constexpr QByteArrayView reserved = "\",;\\\n\r";

struct Escape {
  char character;
  char letter;
};
constexpr auto escapes = std::to_array<Escape>({{'"', '"'}, {'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}});

bool hasReserved(QByteArrayView text) {
  return std::ranges::any_of(text, [](char character) { return reserved.contains(character); });
}

QByteArray encoded(const QString& value) {
  QByteArray text = value.toUtf8();
  if (!hasReserved(text) && text.trimmed() == text) {
    return text;
  }
  QByteArray quoted = "\"";
  for (const char character : std::as_const(text)) {
    const auto* const escape = std::ranges::find(escapes, character, &Escape::character);
    if (escape != escapes.end()) {
      quoted += '\\';
    }
    quoted += escape != escapes.end() ? escape->letter : character;
  }
  return quoted + '"';
}

std::optional<QByteArray> unescaped(QByteArrayView text) {
  QByteArray result;
  for (auto character = text.begin(); character != text.end(); ++character) {
    if (*character != '\\') {
      if (*character == '"') {
        return std::nullopt;
      }
      result += *character;
      continue;
    }
    if (++character == text.end()) {
      return std::nullopt;
    }
    const auto* const escape = std::ranges::find(escapes, *character, &Escape::letter);
    if (escape == escapes.end()) {
      return std::nullopt;
    }
    result += escape->character;
  }
  return result;
}

std::optional<QString> decoded(QByteArrayView value) {
  std::optional<QByteArray> text;
  if (value.size() >= 2 && value.startsWith('"') && value.endsWith('"')) {
    text = unescaped(value.sliced(1, value.size() - 2));
  } else if (!hasReserved(value)) {
    text = value.toByteArray();
  }
  if (!text || !text->isValidUtf8() || text->contains('\0')) {
    return std::nullopt;
  }
  return QString::fromUtf8(*text);
}

/// A stretch of the file, in bytes.
struct Stretch {
  qsizetype start;
  qsizetype length;
};

struct Places {
  /// The value that stands for the key; of several the last.
  std::optional<Stretch> value;
  /// Behind the line that opens the section.
  std::optional<qsizetype> sectionStart;
};

Places placesIn(QByteArrayView content, QByteArrayView key) {
  Places places;
  // What stands above every section belongs to it, too.
  bool inGeneralSection = true;
  qsizetype next = 0;
  for (qsizetype start = content.startsWith(byteOrderMark) ? byteOrderMark.size() : 0; start < content.size();
       start = next) {
    const qsizetype end = content.indexOf('\n', start);
    next = end < 0 ? content.size() : end + 1;
    const QByteArrayView line = content.sliced(start, next - start).trimmed();
    if (line.startsWith('[')) {
      inGeneralSection = line.compare(generalSection, Qt::CaseInsensitive) == 0;
      if (inGeneralSection) {
        places.sectionStart = next;
      }
    } else if (const qsizetype equals = line.indexOf('=');
               inGeneralSection && equals >= 0 && line.first(equals).trimmed() == key) {
      const QByteArrayView value = line.sliced(equals + 1).trimmed();
      places.value = {.start = value.data() - content.data(), .length = value.size()};
    }
  }
  return places;
}

QByteArray withValue(QByteArray content, const QByteArray& key, const QByteArray& value) {
  const Places places = placesIn(content, key);
  if (places.value) {
    return content.replace(places.value->start, places.value->length, value);
  }
  const QByteArray line = key + '=' + value + '\n';
  if (places.sectionStart) {
    const bool endsInside = !content.first(*places.sectionStart).endsWith('\n');
    return content.insert(*places.sectionStart, endsInside ? '\n' + line : line);
  }
  const qsizetype top = content.startsWith(byteOrderMark) ? byteOrderMark.size() : 0;
  const bool isEmpty = content.size() == top;
  return content.insert(top, generalSection.toByteArray() + '\n' + line + (isEmpty ? "" : "\n"));
}

QString nameOf(const fs::path& path) {
  return QFile::decodeName(path.c_str());
}

/// Opening anything else could wait for ever, as with a pipe, or never come to an end.
bool isSmallFile(const QFileInfo& file) {
  return file.isFile() && file.size() <= largestFileInBytes;
}

std::optional<QByteArray> contentOf(const QString& name) {
  QFile file(name);
  if (!isSmallFile(QFileInfo(file)) || !file.open(QIODevice::ReadOnly)) {
    return std::nullopt;
  }
  return file.readAll();
}

/// For the owner only, as is the custom for configuration folders.
void makeFolders(const fs::path& folder) {
  fs::path made;
  for (const fs::path& name : folder) {
    made /= name;
    mkdir(made.c_str(), S_IRWXU);
  }
}

void replaceFile(const QString& name, const QByteArray& content) {
  QSaveFile file(name);
  // On a full disk QSaveFile would commit what could be written.
  if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush()) {
    file.commit();
  }
}

bool tryLock(QLockFile& lock) {
  const QFileInfo file(lock.fileName());
  if (file.exists() && !isSmallFile(file)) {
    return false;
  }
  // With its own time limit the lock would sleep longer and longer from 100 ms on; writing takes a few.
  const QDeadlineTimer deadline(longestWaitForOthers);
  while (!lock.tryLock(0)) {
    if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired()) {
      return false;
    }
    std::this_thread::sleep_for(pauseBetweenAttempts);
  }
  return true;
}

}  // namespace

IniUserDefaults::IniUserDefaults(fs::path file) : m_file(std::move(file)) {}

IniUserDefaults IniUserDefaults::ofUser() {
  const fs::path named = qgetenv("XDG_CONFIG_HOME").toStdString();
  // A relative one is to be ignored.
  const fs::path folder =
      named.is_absolute() ? named : fs::path(QFile::encodeName(QDir::homePath()).toStdString()) / ".config";
  return IniUserDefaults(folder / "mireval" / "mireval.conf");
}

std::optional<QString> IniUserDefaults::string(QStringView key) const {
  if (const auto content = contentOf(nameOf(m_file))) {
    if (const auto value = placesIn(*content, key.toUtf8()).value) {
      return decoded(QByteArrayView(*content).sliced(value->start, value->length));
    }
  }
  return std::nullopt;
}

void IniUserDefaults::set(QStringView key, const QString& value) {
  makeFolders(m_file.parent_path());
  const QString name = nameOf(m_file);
  QLockFile lock(name + QLatin1String(".lock"));
  if (!tryLock(lock)) {
    return;
  }
  const auto content = QFileInfo::exists(name) ? contentOf(name) : QByteArray();
  if (!content) {
    return;
  }
  const QByteArray changed = withValue(*content, key.toUtf8(), encoded(value));
  // What could not be read again is not written.
  if (changed.size() <= largestFileInBytes) {
    replaceFile(name, changed);
  }
}

}  // namespace mireval
