#include "library/Catalogue.h"

#include <QUuid>

#include <algorithm>
#include <array>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

using Table = std::array<QLatin1StringView, 16>;

constexpr Table relaxationTitles{
    "Rain Veil"_L1,    "Quiet Thunder"_L1, "Coastline Loop"_L1, "Misted Window"_L1,
    "Soft Shelter"_L1, "Rain Ledger"_L1,   "Still Shelter"_L1,  "Cloud Drift"_L1,
    "Warm Tide"_L1,    "Quiet Harbor"_L1,  "Soft Meadow"_L1,    "Night Hush"_L1,
    "Pale Current"_L1, "Resting Air"_L1,   "Low Horizon"_L1,    "Calm Field"_L1,
};

constexpr Table relaxationDetails{
    "Warm weather texture for long sessions"_L1,
    "Low-pressure ambience with slow distance"_L1,
    "Even breathing and soft environmental motion"_L1,
    "Soft drifting calm with a lighter horizon"_L1,
    "Brown-noise warmth built for long steady work"_L1,
    "Gentle rain and distant weather with low pressure"_L1,
    "Soft rain texture for long relaxed work"_L1,
    "Restorative drift with light environmental air"_L1,
    "Oceanic calm with warm neutral motion"_L1,
    "Sheltered ambience for low-stress tasks"_L1,
    "Quiet natural softness with reduced fatigue"_L1,
    "Night ambience with stable restorative depth"_L1,
    "Slow reflective wash for calmer sessions"_L1,
    "Airy low-distraction comfort background"_L1,
    "Peaceful horizon with subtle field texture"_L1,
    "Long-session calm with steady presence"_L1,
};

constexpr Table focusTitles{
    "Single Thread"_L1, "Clear Frame"_L1, "Quiet Scope"_L1,  "North Window"_L1,
    "Still Array"_L1,   "Felt Signal"_L1, "Soft Grid"_L1,    "Slow Circuit"_L1,
    "Grey Study"_L1,    "Calm Syntax"_L1, "Long Form"_L1,    "Signal Glass"_L1,
    "Night Draft"_L1,   "Open Margin"_L1, "Static Bloom"_L1, "Deep Channel"_L1,
};

constexpr Table focusDetails{
    "Dark drone bed with minimal harmonic drift"_L1,
    "Low-distraction sustained texture"_L1,
    "Stable neutral field for code and writing"_L1,
    "Even concentration with a cleaner top end"_L1,
    "Soft pads and restrained low end for uninterrupted focus"_L1,
    "Sparse piano and tape haze for quieter concentration"_L1,
    "Minimal ambient field for concentrated work"_L1,
    "Restrained felt piano and drone support"_L1,
    "Neutral monochrome texture for long study blocks"_L1,
    "Stable soft-focus architecture for coding"_L1,
    "Patient ambient writing background"_L1,
    "Glassy upper air with low distraction motion"_L1,
    "Dark minimal tone for thoughtful concentration"_L1,
    "Clean harmonic bed for reading and drafting"_L1,
    "Subtle bloom without attention-grabbing movement"_L1,
    "Steady deep-focus background with premium clarity"_L1,
};

constexpr Table creativeTitles{
    "Afterglow Draft"_L1, "Glass Margins"_L1, "Paper Horizon"_L1, "Slow Bloom"_L1,
    "Luminous Draft"_L1,  "Velvet Margin"_L1, "Soft Prism"_L1,    "Idea River"_L1,
    "Wide Canvas"_L1,     "Light Chamber"_L1, "Color Study"_L1,   "Sketch Field"_L1,
    "Mild Echo"_L1,       "Warm Contour"_L1,  "Dream Board"_L1,   "Golden Outline"_L1,
};

constexpr Table creativeDetails{
    "Piano and strings with restrained lift"_L1,
    "Soft cinematic arc for ideation"_L1,
    "Reflective movement without vocal lead"_L1,
    "A wider emotional field for thinking in layers"_L1,
    "Soft synth motion with restrained cinematic lift"_L1,
    "Muted piano and strings for thoughtful exploration"_L1,
    "Cinematic ambient support for brainstorming"_L1,
    "Gentle motion for open-ended ideation"_L1,
    "Expansive creative atmosphere with low distraction"_L1,
    "Reflective design background with elegant lift"_L1,
    "Inventive but restrained soundtrack motion"_L1,
    "Soft tonal field for concepts and planning"_L1,
    "Subtle emotional arc for writing sessions"_L1,
    "Warm texture for visual and strategic thinking"_L1,
    "Dreamlike but work-suitable ambient flow"_L1,
    "Elegant exploratory atmosphere with premium clarity"_L1,
};

constexpr Table tempoTitles{
    "Clean Run"_L1,    "Task Current"_L1,   "Inbox Motion"_L1, "Clear Sprint"_L1,
    "Forward Desk"_L1, "Light Conveyor"_L1, "Pulse Stack"_L1,  "Step Line"_L1,
    "Fast Ledger"_L1,  "Workstream"_L1,     "Quick Relay"_L1,  "Drive Column"_L1,
    "Motion Grid"_L1,  "Light Motor"_L1,    "Sharp Cycle"_L1,  "Task Runner"_L1,
};

constexpr Table tempoDetails{
    "Steady groove for repetitive execution"_L1,
    "Forward pulse with low melodic chatter"_L1,
    "Continuous rhythmic drive for task clearing"_L1,
    "A tighter motor rhythm for lighter repetitive work"_L1,
    "Deep-house groove with clean productive momentum"_L1,
    "Controlled techno pulse for repetitive task flow"_L1,
    "Steady electronic rhythm for repeated operations"_L1,
    "Linear groove with disciplined energy"_L1,
    "Fast but controlled background momentum"_L1,
    "Structured pulse for productive workflows"_L1,
    "Clean repetitive movement without overload"_L1,
    "Focused drive for execution-heavy sessions"_L1,
    "Motorik pace with minimal melodic clutter"_L1,
    "Soft-punch rhythm for sustained task flow"_L1,
    "Controlled breakbeat energy for busy work"_L1,
    "Stable movement for high-volume repetitive tasks"_L1,
};

}  // namespace

QList<Track> makeTracks(std::span<const QLatin1StringView> titles, std::span<const QLatin1StringView> details,
                        Mood mood) {
  const std::size_t count = std::min(titles.size(), details.size());
  QList<Track> tracks;
  tracks.reserve(static_cast<qsizetype>(count));
  for (std::size_t i = 0; i < count; ++i) {
    Track track;
    track.id = QUuid::createUuid();
    track.mood = mood;
    track.title = titles[i];
    track.detail = details[i];
    track.resourceName = u"%1-%2"_s.arg(rawValue(mood)).arg(i + 1);
    track.fileExtension = u"m4a"_s;
    track.availability = TrackAvailability::included();
    tracks.append(std::move(track));
  }
  return tracks;
}

const Catalogue& catalogue() {
  static const Catalogue tracks{
      {Mood::relaxation, makeTracks(relaxationTitles, relaxationDetails, Mood::relaxation)},
      {Mood::focus, makeTracks(focusTitles, focusDetails, Mood::focus)},
      {Mood::creative, makeTracks(creativeTitles, creativeDetails, Mood::creative)},
      {Mood::tempo, makeTracks(tempoTitles, tempoDetails, Mood::tempo)},
  };
  return tracks;
}

}  // namespace mireval
