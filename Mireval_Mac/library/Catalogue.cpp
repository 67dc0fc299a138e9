#include "library/Catalogue.h"

#include <QUuid>

#include <algorithm>
#include <array>

namespace mireval {
namespace {

using Table = std::array<QLatin1String, 16>;

constexpr Table relaxationTitles{
    QLatin1String("Rain Veil"),     QLatin1String("Quiet Thunder"), QLatin1String("Coastline Loop"),
    QLatin1String("Misted Window"), QLatin1String("Soft Shelter"),  QLatin1String("Rain Ledger"),
    QLatin1String("Still Shelter"), QLatin1String("Cloud Drift"),   QLatin1String("Warm Tide"),
    QLatin1String("Quiet Harbor"),  QLatin1String("Soft Meadow"),   QLatin1String("Night Hush"),
    QLatin1String("Pale Current"),  QLatin1String("Resting Air"),   QLatin1String("Low Horizon"),
    QLatin1String("Calm Field"),
};

constexpr Table relaxationDetails{
    QLatin1String("Warm weather texture for long sessions"),
    QLatin1String("Low-pressure ambience with slow distance"),
    QLatin1String("Even breathing and soft environmental motion"),
    QLatin1String("Soft drifting calm with a lighter horizon"),
    QLatin1String("Brown-noise warmth built for long steady work"),
    QLatin1String("Gentle rain and distant weather with low pressure"),
    QLatin1String("Soft rain texture for long relaxed work"),
    QLatin1String("Restorative drift with light environmental air"),
    QLatin1String("Oceanic calm with warm neutral motion"),
    QLatin1String("Sheltered ambience for low-stress tasks"),
    QLatin1String("Quiet natural softness with reduced fatigue"),
    QLatin1String("Night ambience with stable restorative depth"),
    QLatin1String("Slow reflective wash for calmer sessions"),
    QLatin1String("Airy low-distraction comfort background"),
    QLatin1String("Peaceful horizon with subtle field texture"),
    QLatin1String("Long-session calm with steady presence"),
};

constexpr Table focusTitles{
    QLatin1String("Single Thread"), QLatin1String("Clear Frame"),  QLatin1String("Quiet Scope"),
    QLatin1String("North Window"),  QLatin1String("Still Array"),  QLatin1String("Felt Signal"),
    QLatin1String("Soft Grid"),     QLatin1String("Slow Circuit"), QLatin1String("Grey Study"),
    QLatin1String("Calm Syntax"),   QLatin1String("Long Form"),    QLatin1String("Signal Glass"),
    QLatin1String("Night Draft"),   QLatin1String("Open Margin"),  QLatin1String("Static Bloom"),
    QLatin1String("Deep Channel"),
};

constexpr Table focusDetails{
    QLatin1String("Dark drone bed with minimal harmonic drift"),
    QLatin1String("Low-distraction sustained texture"),
    QLatin1String("Stable neutral field for code and writing"),
    QLatin1String("Even concentration with a cleaner top end"),
    QLatin1String("Soft pads and restrained low end for uninterrupted focus"),
    QLatin1String("Sparse piano and tape haze for quieter concentration"),
    QLatin1String("Minimal ambient field for concentrated work"),
    QLatin1String("Restrained felt piano and drone support"),
    QLatin1String("Neutral monochrome texture for long study blocks"),
    QLatin1String("Stable soft-focus architecture for coding"),
    QLatin1String("Patient ambient writing background"),
    QLatin1String("Glassy upper air with low distraction motion"),
    QLatin1String("Dark minimal tone for thoughtful concentration"),
    QLatin1String("Clean harmonic bed for reading and drafting"),
    QLatin1String("Subtle bloom without attention-grabbing movement"),
    QLatin1String("Steady deep-focus background with premium clarity"),
};

constexpr Table creativeTitles{
    QLatin1String("Afterglow Draft"), QLatin1String("Glass Margins"),  QLatin1String("Paper Horizon"),
    QLatin1String("Slow Bloom"),      QLatin1String("Luminous Draft"), QLatin1String("Velvet Margin"),
    QLatin1String("Soft Prism"),      QLatin1String("Idea River"),     QLatin1String("Wide Canvas"),
    QLatin1String("Light Chamber"),   QLatin1String("Color Study"),    QLatin1String("Sketch Field"),
    QLatin1String("Mild Echo"),       QLatin1String("Warm Contour"),   QLatin1String("Dream Board"),
    QLatin1String("Golden Outline"),
};

constexpr Table creativeDetails{
    QLatin1String("Piano and strings with restrained lift"),
    QLatin1String("Soft cinematic arc for ideation"),
    QLatin1String("Reflective movement without vocal lead"),
    QLatin1String("A wider emotional field for thinking in layers"),
    QLatin1String("Soft synth motion with restrained cinematic lift"),
    QLatin1String("Muted piano and strings for thoughtful exploration"),
    QLatin1String("Cinematic ambient support for brainstorming"),
    QLatin1String("Gentle motion for open-ended ideation"),
    QLatin1String("Expansive creative atmosphere with low distraction"),
    QLatin1String("Reflective design background with elegant lift"),
    QLatin1String("Inventive but restrained soundtrack motion"),
    QLatin1String("Soft tonal field for concepts and planning"),
    QLatin1String("Subtle emotional arc for writing sessions"),
    QLatin1String("Warm texture for visual and strategic thinking"),
    QLatin1String("Dreamlike but work-suitable ambient flow"),
    QLatin1String("Elegant exploratory atmosphere with premium clarity"),
};

constexpr Table tempoTitles{
    QLatin1String("Clean Run"),    QLatin1String("Task Current"), QLatin1String("Inbox Motion"),
    QLatin1String("Clear Sprint"), QLatin1String("Forward Desk"), QLatin1String("Light Conveyor"),
    QLatin1String("Pulse Stack"),  QLatin1String("Step Line"),    QLatin1String("Fast Ledger"),
    QLatin1String("Workstream"),   QLatin1String("Quick Relay"),  QLatin1String("Drive Column"),
    QLatin1String("Motion Grid"),  QLatin1String("Light Motor"),  QLatin1String("Sharp Cycle"),
    QLatin1String("Task Runner"),
};

constexpr Table tempoDetails{
    QLatin1String("Steady groove for repetitive execution"),
    QLatin1String("Forward pulse with low melodic chatter"),
    QLatin1String("Continuous rhythmic drive for task clearing"),
    QLatin1String("A tighter motor rhythm for lighter repetitive work"),
    QLatin1String("Deep-house groove with clean productive momentum"),
    QLatin1String("Controlled techno pulse for repetitive task flow"),
    QLatin1String("Steady electronic rhythm for repeated operations"),
    QLatin1String("Linear groove with disciplined energy"),
    QLatin1String("Fast but controlled background momentum"),
    QLatin1String("Structured pulse for productive workflows"),
    QLatin1String("Clean repetitive movement without overload"),
    QLatin1String("Focused drive for execution-heavy sessions"),
    QLatin1String("Motorik pace with minimal melodic clutter"),
    QLatin1String("Soft-punch rhythm for sustained task flow"),
    QLatin1String("Controlled breakbeat energy for busy work"),
    QLatin1String("Stable movement for high-volume repetitive tasks"),
};

}  // namespace

QList<Track> makeTracks(std::span<const QLatin1String> titles, std::span<const QLatin1String> details,
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
    track.resourceName = QStringLiteral("%1-%2").arg(rawValue(mood)).arg(i + 1);
    track.fileExtension = QStringLiteral("m4a");
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
