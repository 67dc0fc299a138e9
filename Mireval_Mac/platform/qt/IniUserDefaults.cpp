#include "platform/qt/IniUserDefaults.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

#include <sys/stat.h>

#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

constexpr qsizetype maxFileBytes = 1 << 20;
constexpr int lockTimeoutMilliseconds = 1000;

constexpr QByteArrayView byteOrderMark = "\xEF\xBB\xBF";
constexpr QByteArrayView generalSection = "[General]";

/// Nothing for a value that is no plain word.
std::optional<QString> decoded(QByteArrayView value) {
  if (value.size() >= 2 && value.startsWith('"') && value.endsWith('"')) {
    value = value.sliced(1, value.size() - 2);
  }
  for (const char reserved : {'"', '\\', ',', ';', '\0'}) {
    if (value.contains(reserved)) {
      return std::nullopt;
    }
  }
  return value.isValidUtf8() ? std::optional(QString::fromUtf8(value)) : std::nullopt;
}

qsizetype startOf(QByteArrayView content) {
  return content.startsWith(byteOrderMark) ? byteOrderMark.size() : 0;
}

/// The part of the content that is the key's value; of several the last one.
std::optional<QByteArrayView> valueIn(QByteArrayView content, QByteArrayView key) {
  std::optional<QByteArrayView> value;
  // Entries above the first section belong to it too.
  bool inGeneralSection = true;
  qsizetype end = 0;
  for (qsizetype start = startOf(content); start < content.size(); start = end + 1) {
    end = content.indexOf('\n', start);
    end = end < 0 ? content.size() : end;
    const QByteArrayView line = content.sliced(start, end - start).trimmed();
    const qsizetype equals = line.indexOf('=');
    if (line.startsWith('[')) {
      inGeneralSection = line.compare(generalSection, Qt::CaseInsensitive) == 0;
    } else if (inGeneralSection && equals >= 0 && line.first(equals).trimmed() == key) {
      value = line.sliced(equals + 1).trimmed();
    }
  }
  return value;
}

QByteArray withValue(QByteArray content, const QByteArray& key, const QByteArray& value) {
  if (const auto earlier = valueIn(content, key)) {
    return content.replace(earlier->data() - content.constData(), earlier->size(), value);
  }
  return content.insert(startOf(content), generalSection.toByteArray() + '\n' + key + '=' + value + '\n');
}

QString nameOf(const fs::path& path) {
  return QFile::decodeName(path.c_str());
}

std::optional<QByteArray> contentOf(const QString& name) {
  QFile file(name);
  // Opening anything but a regular file could block, as with a pipe, or never end.
  const QFileInfo info(file);
  if (!info.isFile() || info.size() > maxFileBytes || !file.open(QIODevice::ReadOnly)) {
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

}  // namespace

IniUserDefaults::IniUserDefaults(fs::path file) : m_file(std::move(file)) {}

IniUserDefaults IniUserDefaults::forCurrentUser() {
  const fs::path named = qgetenv("XDG_CONFIG_HOME").toStdString();
  // The base directory standard says to ignore a relative path.
  const fs::path folder =
      named.is_absolute() ? named : fs::path(QFile::encodeName(QDir::homePath()).toStdString()) / ".config";
  return IniUserDefaults(folder / "mireval" / "mireval.conf");
}

std::optional<QString> IniUserDefaults::string(QStringView key) const {
  const auto content = contentOf(nameOf(m_file));
  const auto value = content ? valueIn(*content, key.toUtf8()) : std::nullopt;
  return value ? decoded(*value) : std::nullopt;
}

void IniUserDefaults::set(QStringView key, const QString& value) {
  const QByteArray text = value.toUtf8();
  if (text.contains('\n') || decoded(QByteArrayView(text).trimmed()) != value) {
    return;
  }
  makeFolders(m_file.parent_path());
  const QString name = nameOf(m_file);
  QLockFile lock(name + ".lock"_L1);
  if (!lock.tryLock(lockTimeoutMilliseconds)) {
    return;
  }
  const auto content = QFileInfo::exists(name) ? contentOf(name) : QByteArray();
  QSaveFile file(name);
  if (content && file.open(QIODevice::WriteOnly)) {
    const QByteArray changed = withValue(*content, key.toUtf8(), text);
    // Without the explicit flush, Qt 6.4 commits a truncated file when the disk is full.
    if (file.write(changed) == changed.size() && file.flush()) {
      file.commit();
    }
  }
}

}  // namespace mireval
