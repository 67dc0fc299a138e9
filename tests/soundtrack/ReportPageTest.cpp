#include "report/ReportPage.h"

#include "library/Catalogue.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <string>
#include <vector>

namespace mireval::soundtrack::test {
namespace {

using namespace Qt::StringLiterals;

std::vector<ReportTrack> wholeCatalogue() {
  std::vector<ReportTrack> tracks;
  for (const auto& [mood, ofMood] : catalogue()) {
    for (const Track& track : ofMood) {
      ReportTrack report;
      report.track = track;
      report.source = TrackSource::parse(
          u"; %1 - %2 - what it is\n"
          "piece \"%1\", 64, \"Db major\"\n"
          "wash \"pad\", 60, \"1\"\ntune \"horn\", 60, \"1\", \"1\"\n"_s.arg(track.title, rawValue(mood)));
      report.audio = *track.resourceName + u".m4a"_s;
      report.picture = *track.resourceName + u".png"_s;
      report.seconds = 177.4;
      report.bytes = 2'500'000;
      report.figures = {{"loudness", "LUFS", -18, {-18.3, -17.7}}, {"form", "dB", 3, {.least = 2}}};
      report.nearest = u"Another"_s;
      tracks.push_back(report);
    }
  }
  return tracks;
}

std::string page(const std::vector<ReportTrack>& tracks) {
  return reportPage(tracks).toStdString();
}

int count(const std::string& text, const std::string& part) {
  int found = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
    ++found;
  }
  return found;
}

/// From the heading of a track to the end of its section.
std::string section(const std::string& html, const std::string& name) {
  const auto start = html.find("<section class=\"track\" id=\"" + name + "\">");
  if (start == std::string::npos) {
    ADD_FAILURE() << name << " is not on the page";
    return {};
  }
  return html.substr(start, html.find("</section>", start) - start);
}

TEST(ReportPageTest, ShowsEveryTrackWithPictureAndPlayer) {
  const std::string html = page(wholeCatalogue());
  EXPECT_EQ(count(html, "<section class=\"track\""), 64);
  EXPECT_EQ(count(html, "<h2>"), 4);
  for (const auto& [mood, tracks] : catalogue()) {
    for (const Track& track : tracks) {
      const std::string name = track.resourceName->toStdString();
      const std::string part = section(html, name);
      for (const std::string& element :
           {"<h3>" + track.title.toStdString() + "</h3>", track.detail.toStdString(),
            "<img src=\"" + name + ".png\"", "<audio controls preload=\"none\" src=\"" + name + ".m4a\">"}) {
        EXPECT_EQ(count(part, element), 1) << element;
      }
      EXPECT_EQ(count(html, "<a href=\"#" + name + "\">"), 1);
    }
  }
}

TEST(ReportPageTest, TellsWhatThePieceIs) {
  const std::string part = section(page(wholeCatalogue()), "focus-6");
  for (const char* fact : {"what it is", "Db major", "64 bpm", "2:57", "horn over pad", "nearest: Another"}) {
    EXPECT_EQ(count(part, fact), 1) << fact << " in\n" << part;
  }
}

TEST(ReportPageTest, MarksFiguresOutsideTheirLimits) {
  std::vector<ReportTrack> tracks = wholeCatalogue();
  EXPECT_EQ(count(section(page(tracks), "relaxation-1"), "class=\"bad\""), 0);
  EXPECT_EQ(count(page(tracks), " 0 figures outside their limits"), 1);
  tracks[0].figures[1].value = 1.9;
  const std::string html = page(tracks);
  EXPECT_EQ(count(section(html, "relaxation-1"), "<li class=\"bad\">form 1.90 dB"), 1);
  EXPECT_EQ(count(section(html, "relaxation-2"), "class=\"bad\""), 0);
  EXPECT_EQ(count(html, "1 figures outside their limits"), 1);
}

TEST(ReportPageTest, JudgesTheWhole) {
  std::vector<ReportTrack> tracks = wholeCatalogue();
  EXPECT_EQ(count(page(tracks), "<span>160 MB (at most 190)</span>"), 1);
  EXPECT_EQ(count(page(tracks), "<span>177.4 s (170 to 185)</span>"), 4);
  tracks[0].bytes = 60'000'000;
  tracks[63].seconds = 500;
  EXPECT_EQ(count(page(tracks), "<span class=\"bad\">217.5 MB (at most 190)</span>"), 1);
  EXPECT_EQ(count(page(tracks), "<span class=\"bad\">197.6 s (170 to 185)</span>"), 1);
}

TEST(ReportPageTest, SaysInItsPlaceThatATrackIsMissing) {
  std::vector<ReportTrack> tracks = wholeCatalogue();
  const auto lose = [](ReportTrack& track) {
    ReportTrack missing;
    missing.track = track.track;
    missing.problem = u"not rendered"_s;
    track = missing;
  };
  lose(tracks[20]);
  const std::string html = page(tracks);
  EXPECT_EQ(count(html, "<section class=\"track\""), 64);
  const std::string part = section(html, "focus-5");
  EXPECT_EQ(count(part, "not rendered"), 1);
  EXPECT_EQ(count(part, "<audio"), 0);
  EXPECT_EQ(count(part, "<img"), 0);
  EXPECT_EQ(count(html, "<span class=\"bad\">1 missing</span>"), 1);
  std::ranges::for_each(tracks, lose);
  EXPECT_EQ(count(page(tracks), "<section class=\"track\""), 64);
  EXPECT_EQ(count(page({}), "<section class=\"track\""), 0);
}

TEST(ReportPageTest, EscapesWhatItIsTold) {
  const QString nasty = u"<b>\"A\" & 'B'</b>"_s;
  ReportTrack track;
  track.source = TrackSource();
  track.source->piece = Piece{.title = nasty, .tempo = 60, .key = nasty};
  track.track.title = track.track.detail = track.source->description = nasty;
  track.source->lead = track.source->bed = track.audio = track.picture = nasty;
  track.track.resourceName = nasty;
  track.seconds = 60;
  track.figures = {{nasty.toStdString(), nasty.toStdString(), 1, {}}};
  track.nearest = nasty;
  track.problem = nasty;
  const std::string html = page({track});
  EXPECT_EQ(count(html, "<b>"), 0);
  EXPECT_EQ(count(html, "\"A\""), 0);
  EXPECT_GT(count(html, "&lt;b&gt;&quot;A&quot; &amp; "), 10);
}

TEST(ReportPageTest, DoesNotTakeATitleForAPlaceHolder) {
  ReportTrack track;
  track.track.title = u"%1 %2 %3"_s;
  track.track.detail = u"%2 %1"_s;
  track.track.resourceName = u"focus-1"_s;
  track.source = TrackSource();
  track.source->description = u"%1"_s;
  EXPECT_EQ(
      count(section(page({track}), "focus-1"), "<h3>%1 %2 %3</h3>\n<p class=\"faint\">%2 %1</p>\n<p>%1</p>"),
      1);
}

TEST(ReportPageTest, NeedsNoNetwork) {
  const std::string html = page(wholeCatalogue());
  for (const char* const address : {"http:", "https:", "src=\"/"}) {
    EXPECT_EQ(count(html, address), 0) << address;
  }
  EXPECT_EQ(count(html, "prefers-color-scheme: dark"), 1);
}

/// What is opened is closed again, in the right order.
TEST(ReportPageTest, IsWellFormed) {
  QString html = reportPage(wholeCatalogue());
  const auto body = html.indexOf(u"<body>"_s);
  html = html.mid(body, html.indexOf(u"<script>"_s) - body) + u"</body>"_s;
  for (const char* tag : {"br", "img"}) {
    html.remove(QRegularExpression(u"<%1[^>]*>"_s.arg(QLatin1String(tag))));
  }
  html.replace(u" controls "_s, u" controls=\"\" "_s);
  QXmlStreamReader reader(html);
  while (!reader.atEnd()) {
    reader.readNext();
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << " in line " << reader.lineNumber();
}

}  // namespace
}  // namespace mireval::soundtrack::test
