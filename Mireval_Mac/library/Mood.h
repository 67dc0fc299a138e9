#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace mireval {
Q_NAMESPACE

/// A work mode. Declared in catalogue order; the panel shows another order.
enum class Mood : std::uint8_t { relaxation, focus, creative, tempo };
Q_ENUM_NS(Mood)

/// Every mood, in declaration order.
inline constexpr std::array allMoods{Mood::relaxation, Mood::focus, Mood::creative, Mood::tempo};

/// The stable lower-case name by which files and views identify a mood, for example "focus".
QString rawValue(Mood mood);

/// The mood with exactly this raw value (case-sensitive), or nothing.
std::optional<Mood> moodFromRawValue(QStringView rawValue);

/// What identifies the mood in a list: its raw value. Only tests use it so far.
QString id(Mood mood);

/// The built-in English title, for example "Relaxation". The localised titles on the panel's tiles differ on
/// purpose, also in English.
QString title(Mood mood);

/// The name of the symbol on the mood's tile.
QString symbolName(Mood mood);

/// How many covers each mood has.
inline constexpr int coversPerMood = 10;

/// The base name of the cover for the 1-based position `index` in the mood's playlist, for example
/// "focus-03". The index is clamped to 1...`coversPerMood`.
QString coverImageName(Mood mood, std::int64_t index);

}  // namespace mireval
