#include "report/ReportPage.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

namespace mireval::soundtrack {
namespace {

using namespace Qt::StringLiterals;

const QString head =
    uR"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Soundtrack</title>
<style>
:root { color-scheme: light dark; --ground: #fff; --text: #222; --faint: #666; --rule: #ddd; --bad: #b00020; --bad-ground: #fde7ea; --link: #1a5fb4; }
@media (prefers-color-scheme: dark) {
  :root { --ground: #1b1b1d; --text: #e4e4e4; --faint: #a0a0a0; --rule: #3a3a3d; --bad: #ff8a95; --bad-ground: #4a1e24; --link: #8ab4f8; }
}
body { margin: 2em auto; max-width: 1400px; padding: 0 1em; background: var(--ground); color: var(--text); font: 15px/1.45 sans-serif; }
a { color: var(--link); text-decoration: none; }
a:hover { text-decoration: underline; }
.faint { color: var(--faint); }
.bad { color: var(--bad); background: var(--bad-ground); font-weight: bold; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; font-size: 11px; }
th, td { padding: 2px 5px; border-bottom: 1px solid var(--rule); text-align: right; white-space: nowrap; }
thead th { vertical-align: bottom; white-space: normal; font-weight: normal; color: var(--faint); }
th:first-child, td:first-child, .text { text-align: left; }
tbody th { font-weight: bold; padding-top: 1em; }
.track { margin: 0 0 3em; }
.track h3 { margin: 0; }
.track p { margin: .2em 0; }
.track img { display: block; width: 100%; height: auto; margin: .5em 0; background: #000; }
.track audio { width: 100%; }
.figures { display: flex; flex-wrap: wrap; gap: .3em 1.2em; margin: .5em 0; padding: 0; list-style: none; font-size: 13px; }
.figures li.bad { padding: 0 .4em; }
</style>
</head>
<body>
<h1>Soundtrack</h1>
)html"_s;

const QString legend =
    uR"html(<p class="faint">In the pictures, from top to bottom: the spectrum, three
rows a semitone, with a mark at every C from C1 up, high notes raised by 3 dB per octave; the twelve pitch classes, C at
the bottom; the level from -42 to -10 dB, with the loudness of the last three seconds as a line. The marks between them
tell every thirty seconds. A figure outside its limits looks <span class="bad">like this</span>.</p>
)html"_s;

const QString tail =
    uR"html(<script>
addEventListener("play", event => {
  for (const player of document.querySelectorAll("audio")) if (player !== event.target) player.pause();
}, true);
</script>
</body>
</html>
)html"_s;

QString text(const std::string& plain) {
  return QString::fromStdString(plain).toHtmlEscaped();
}

/// As many digits as are meaningful, and as the limits need.
QString number(double value) {
  const double size = std::abs(value);
  if (!std::isfinite(value) || (size > 0 && size < 0.01)) {
    return QString::number(value, 'g', 2);
  }
  if (value == std::round(value)) {
    return QString::number(value, 'f', 0);
  }
  return QString::number(value, 'f', size >= 100 ? 1 : 2);
}

QString length(double seconds) {
  const auto whole = std::lround(seconds);
  return u"%1:%2"_s.arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

/// Empty when every value is allowed.
QString limits(const Range& range) {
  if (std::isinf(range.least) && std::isinf(range.most)) {
    return {};
  }
  return QString::fromStdString(range.text(" to "));
}

QString badClass(bool bad) {
  return bad ? u" class=\"bad\""_s : QString();
}

/// A value with its limits, marked when it is outside them.
QString judged(const QString& value, double exact, const Range& range) {
  return u"<span%1>%2 (%3)</span>"_s.arg(badClass(!range.contains(exact)), value, limits(range));
}

int countBad(std::span<const ReportTrack> tracks) {
  int count = 0;
  for (const ReportTrack& track : tracks) {
    for (const Figure& figure : track.figures) {
      count += figure.isMet() ? 0 : 1;
    }
  }
  return count;
}

QString overview(std::span<const ReportTrack> tracks) {
  constexpr double bytesPerMegabyte = 1e6;
  double megabytes = 0;
  qsizetype missing = 0;
  for (const ReportTrack& track : tracks) {
    megabytes += static_cast<double>(track.bytes) / bytesPerMegabyte;
    missing += track.audio.isEmpty() ? 1 : 0;
  }
  const Range size{.most = static_cast<double>(largestSoundtrack) / bytesPerMegabyte};
  const QStringList parts{
      u"%1 tracks"_s.arg(tracks.size()),
      u"<span%1>%2 missing</span>"_s.arg(badClass(missing > 0)).arg(missing),
      judged(number(megabytes) + u" MB"_s, megabytes, size),
      u"%1 figures outside their limits"_s.arg(countBad(tracks)),
  };
  return u"<p>%1</p>\n"_s.arg(parts.join(u" · "_s));
}

QString meanLength(std::span<const ReportTrack> tracks) {
  double seconds = 0;
  int count = 0;
  for (const ReportTrack& track : tracks) {
    seconds += track.seconds;
    count += track.seconds > 0 ? 1 : 0;
  }
  if (count == 0) {
    return {};
  }
  return u"mean length "_s + judged(number(seconds / count) + u" s"_s, seconds / count, meanLengthOfAMood);
}

QString tempo(const ReportTrack& track) {
  return track.source && track.source->piece ? number(track.source->piece->tempo) : QString();
}

QString key(const ReportTrack& track) {
  return track.source && track.source->piece ? track.source->piece->key.toHtmlEscaped() : QString();
}

QString anchor(const ReportTrack& track) {
  return track.track.resourceName.value_or(QString()).toHtmlEscaped();
}

QString row(const ReportTrack& track, std::size_t figureCount) {
  QString html = u"<tr><td><a href=\"#%1\">%2</a></td><td>%3</td><td class=\"text\">%4</td>"_s.arg(
      anchor(track), track.track.title.toHtmlEscaped(), tempo(track), key(track));
  if (track.figures.empty()) {
    return html + u"<td class=\"text bad\" colspan=\"%1\">%2</td></tr>\n"_s.arg(figureCount + 1)
                      .arg(track.problem.toHtmlEscaped());
  }
  for (const Figure& figure : track.figures) {
    html += u"<td%1 title=\"%2\">%3</td>"_s.arg(badClass(!figure.isMet()), text(figure.text()),
                                                number(figure.value));
  }
  return html + u"<td class=\"text\">%1</td></tr>\n"_s.arg(track.nearest.toHtmlEscaped());
}

/// The tracks of one mood stand next to each other.
template <typename Show>
void forEachMood(std::span<const ReportTrack> tracks, Show show) {
  while (!tracks.empty()) {
    const Mood mood = tracks.front().track.mood;
    const auto end = std::find_if(tracks.begin(), tracks.end(),
                                  [&](const ReportTrack& track) { return track.track.mood != mood; });
    const auto count = static_cast<std::size_t>(end - tracks.begin());
    show(mood, tracks.first(count));
    tracks = tracks.subspan(count);
  }
}

QString table(std::span<const ReportTrack> tracks) {
  const auto measured = std::find_if(tracks.begin(), tracks.end(),
                                     [](const ReportTrack& track) { return !track.figures.empty(); });
  const std::vector<Figure> columns = measured == tracks.end() ? std::vector<Figure>() : measured->figures;
  QString html =
      u"<div class=\"wide\"><table>\n<thead><tr><th></th><th>bpm</th><th class=\"text\">key</th>"_s;
  for (const Figure& figure : columns) {
    html += u"<th>%1<br>%2</th>"_s.arg(text(figure.name), text(figure.unit));
  }
  html += u"<th class=\"text\">nearest</th></tr></thead>\n"_s;
  forEachMood(tracks, [&](Mood mood, std::span<const ReportTrack> ofMood) {
    html += u"<tbody><tr><th colspan=\"%1\">%2 <span class=\"faint\">%3</span></th></tr>\n"_s
                .arg(columns.size() + 4)
                .arg(mireval::title(mood).toHtmlEscaped(), meanLength(ofMood));
    for (const ReportTrack& track : ofMood) {
      html += row(track, columns.size());
    }
    html += u"</tbody>\n"_s;
  });
  return html + u"</table></div>\n"_s;
}

QString section(const ReportTrack& track) {
  const QString title = track.track.title.toHtmlEscaped();
  QString html = u"<section class=\"track\" id=\"%1\">\n<h3>%2</h3>\n<p class=\"faint\">%3</p>\n"_s.arg(
      anchor(track), title, track.track.detail.toHtmlEscaped());
  QStringList facts;
  if (track.source) {
    html += u"<p>%1</p>\n"_s.arg(track.source->description.toHtmlEscaped());
    if (track.source->piece) {
      facts << key(track) << tempo(track) + u" bpm"_s;
    }
    facts << u"%1 over %2"_s.arg(track.source->lead, track.source->bed).toHtmlEscaped();
  }
  if (track.seconds > 0) {
    facts << length(track.seconds);
  }
  facts << anchor(track);
  html += u"<p>%1</p>\n"_s.arg(facts.join(u" · "_s));
  if (!track.problem.isEmpty()) {
    html += u"<p><span class=\"bad\">%1</span></p>\n"_s.arg(track.problem.toHtmlEscaped());
  }
  if (!track.picture.isEmpty()) {
    html += u"<img src=\"%1\" loading=\"lazy\" alt=\"Spectrum, pitch classes and level of %2\">\n"_s.arg(
        track.picture.toHtmlEscaped(), title);
  }
  if (!track.audio.isEmpty()) {
    html += u"<audio controls preload=\"none\" src=\"%1\"></audio>\n"_s.arg(track.audio.toHtmlEscaped());
  }
  if (!track.figures.empty()) {
    html += u"<ul class=\"figures\">\n"_s;
    for (const Figure& figure : track.figures) {
      const QString allowed = limits(figure.allowed);
      html += u"<li%1>%2 %3 %4%5</li>\n"_s.arg(
          badClass(!figure.isMet()), text(figure.name), number(figure.value), text(figure.unit),
          allowed.isEmpty() ? QString() : u" <span class=\"faint\">(%1)</span>"_s.arg(allowed));
    }
    if (!track.nearest.isEmpty()) {
      html += u"<li>nearest: %1</li>\n"_s.arg(track.nearest.toHtmlEscaped());
    }
    html += u"</ul>\n"_s;
  }
  return html + u"</section>\n"_s;
}

}  // namespace

QString reportPage(std::span<const ReportTrack> tracks) {
  QString html = head + overview(tracks) + table(tracks) + legend;
  forEachMood(tracks, [&](Mood mood, std::span<const ReportTrack> ofMood) {
    html += u"<h2>%1</h2>\n"_s.arg(mireval::title(mood).toHtmlEscaped());
    for (const ReportTrack& track : ofMood) {
      html += section(track);
    }
  });
  return html + tail;
}

}  // namespace mireval::soundtrack
