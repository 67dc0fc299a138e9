#include "report/TrackSource.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace mireval::soundtrack {
namespace {

using namespace Qt::StringLiterals;

constexpr QChar quote = u'"';

/// A line of the notation: its first word, and what follows, separated by commas. Strings lose their quotes.
struct Statement {
  QString word;
  QStringList arguments;

  QString argument(qsizetype index) const { return arguments.value(index); }
};

Statement parseStatement(const QString& line) {
  Statement statement;
  QString argument;
  bool inString = false;
  bool inWord = true;
  const auto isPartOfWord = [](QChar character) { return character.isLetterOrNumber() || character == u'#'; };
  for (const QChar character : line.trimmed()) {
    if (inWord && isPartOfWord(character)) {
      statement.word += character;
      continue;
    }
    inWord = false;
    if (character == quote) {
      inString = !inString;
    } else if (!inString && character == u';') {
      break;
    } else if (!inString && character == u',') {
      statement.arguments += argument;
      argument.clear();
    } else if (inString || !character.isSpace()) {
      argument += character;
    }
  }
  if (!argument.isEmpty() || !statement.arguments.isEmpty()) {
    statement.arguments += argument;
  }
  return statement;
}

void parseHead(const QString& line, TrackSource& source) {
  static const QRegularExpression form(u"^; (.+?) - (\\w+) - (.+)$"_s);
  if (const auto match = form.match(line.trimmed()); match.hasMatch()) {
    source.title = match.captured(1);
    source.mood = match.captured(2);
    source.description = match.captured(3);
  }
}

std::optional<Piece> parsePiece(const Statement& statement) {
  Piece piece{.title = statement.argument(0), .key = statement.argument(2).simplified()};
  piece.tempo = statement.argument(1).toDouble();
  if (const int beats = statement.argument(3).toInt(); beats > 0) {
    piece.beatsPerBar = beats;
  }
  if (piece.title.isEmpty() || piece.tempo <= 0 || piece.key.isEmpty()) {
    return std::nullopt;
  }
  return piece;
}

}  // namespace

TrackSource TrackSource::parse(const QString& text) {
  TrackSource source;
  QStringList lines = text.split(u'\n');
  if (lines.last().isEmpty()) {
    lines.removeLast();
  }
  source.lineCount = static_cast<int>(lines.size());
  parseHead(lines.value(0), source);

  QHash<QString, QString> progressions;
  QString sections;
  // The player of the first lane of each kind.
  QHash<QString, QString> players;
  QString stabOrKeys;
  for (const QString& line : std::as_const(lines)) {
    const Statement statement = parseStatement(line);
    const QString& word = statement.word;
    const QString first = statement.argument(0);
    if (word == "piece"_L1) {
      source.piece = parsePiece(statement);
    } else if (word == "chords"_L1) {
      progressions[first.left(1)] = statement.argument(1).simplified();
    } else if (word == "form"_L1) {
      sections = first;
    } else if (!word.isEmpty() && !players.contains(word)) {
      players[word] = first;
      if (stabOrKeys.isEmpty() && (word == "stab"_L1 || word == "keys"_L1)) {
        stabOrKeys = first;
      }
    }
  }
  source.firstProgression = progressions.value(sections.left(1));
  source.lead = players.value(u"tune"_s, players.value(u"keys"_s));
  source.bed = players.value(u"wash"_s, stabOrKeys);
  return source;
}

std::optional<TrackSource> TrackSource::read(const std::filesystem::path& file) {
  QFile opened(file);
  if (!opened.open(QIODevice::ReadOnly)) {
    return std::nullopt;
  }
  return parse(QString::fromUtf8(opened.readAll()));
}

}  // namespace mireval::soundtrack
