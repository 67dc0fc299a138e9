#pragma once

#include "library/Mood.h"

#include <array>

namespace mireval {

/// One track that the application must ship.
struct ExpectedTrack {
  Mood mood;
  const char* resourceName;
  const char* title;
  const char* detail;
};

/// The tracks as listeners know them, in catalogue order. Kept apart from the catalogue on purpose: an edit
/// there has to be repeated here.
inline constexpr std::array<ExpectedTrack, 64> expectedTracks{{
    {Mood::relaxation, "relaxation-1", "Rain Veil", "Warm weather texture for long sessions"},
    {Mood::relaxation, "relaxation-2", "Quiet Thunder", "Low-pressure ambience with slow distance"},
    {Mood::relaxation, "relaxation-3", "Coastline Loop", "Even breathing and soft environmental motion"},
    {Mood::relaxation, "relaxation-4", "Misted Window", "Soft drifting calm with a lighter horizon"},
    {Mood::relaxation, "relaxation-5", "Soft Shelter", "Brown-noise warmth built for long steady work"},
    {Mood::relaxation, "relaxation-6", "Rain Ledger", "Gentle rain and distant weather with low pressure"},
    {Mood::relaxation, "relaxation-7", "Still Shelter", "Soft rain texture for long relaxed work"},
    {Mood::relaxation, "relaxation-8", "Cloud Drift", "Restorative drift with light environmental air"},
    {Mood::relaxation, "relaxation-9", "Warm Tide", "Oceanic calm with warm neutral motion"},
    {Mood::relaxation, "relaxation-10", "Quiet Harbor", "Sheltered ambience for low-stress tasks"},
    {Mood::relaxation, "relaxation-11", "Soft Meadow", "Quiet natural softness with reduced fatigue"},
    {Mood::relaxation, "relaxation-12", "Night Hush", "Night ambience with stable restorative depth"},
    {Mood::relaxation, "relaxation-13", "Pale Current", "Slow reflective wash for calmer sessions"},
    {Mood::relaxation, "relaxation-14", "Resting Air", "Airy low-distraction comfort background"},
    {Mood::relaxation, "relaxation-15", "Low Horizon", "Peaceful horizon with subtle field texture"},
    {Mood::relaxation, "relaxation-16", "Calm Field", "Long-session calm with steady presence"},
    {Mood::focus, "focus-1", "Single Thread", "Dark drone bed with minimal harmonic drift"},
    {Mood::focus, "focus-2", "Clear Frame", "Low-distraction sustained texture"},
    {Mood::focus, "focus-3", "Quiet Scope", "Stable neutral field for code and writing"},
    {Mood::focus, "focus-4", "North Window", "Even concentration with a cleaner top end"},
    {Mood::focus, "focus-5", "Still Array", "Soft pads and restrained low end for uninterrupted focus"},
    {Mood::focus, "focus-6", "Felt Signal", "Sparse piano and tape haze for quieter concentration"},
    {Mood::focus, "focus-7", "Soft Grid", "Minimal ambient field for concentrated work"},
    {Mood::focus, "focus-8", "Slow Circuit", "Restrained felt piano and drone support"},
    {Mood::focus, "focus-9", "Grey Study", "Neutral monochrome texture for long study blocks"},
    {Mood::focus, "focus-10", "Calm Syntax", "Stable soft-focus architecture for coding"},
    {Mood::focus, "focus-11", "Long Form", "Patient ambient writing background"},
    {Mood::focus, "focus-12", "Signal Glass", "Glassy upper air with low distraction motion"},
    {Mood::focus, "focus-13", "Night Draft", "Dark minimal tone for thoughtful concentration"},
    {Mood::focus, "focus-14", "Open Margin", "Clean harmonic bed for reading and drafting"},
    {Mood::focus, "focus-15", "Static Bloom", "Subtle bloom without attention-grabbing movement"},
    {Mood::focus, "focus-16", "Deep Channel", "Steady deep-focus background with premium clarity"},
    {Mood::creative, "creative-1", "Afterglow Draft", "Piano and strings with restrained lift"},
    {Mood::creative, "creative-2", "Glass Margins", "Soft cinematic arc for ideation"},
    {Mood::creative, "creative-3", "Paper Horizon", "Reflective movement without vocal lead"},
    {Mood::creative, "creative-4", "Slow Bloom", "A wider emotional field for thinking in layers"},
    {Mood::creative, "creative-5", "Luminous Draft", "Soft synth motion with restrained cinematic lift"},
    {Mood::creative, "creative-6", "Velvet Margin", "Muted piano and strings for thoughtful exploration"},
    {Mood::creative, "creative-7", "Soft Prism", "Cinematic ambient support for brainstorming"},
    {Mood::creative, "creative-8", "Idea River", "Gentle motion for open-ended ideation"},
    {Mood::creative, "creative-9", "Wide Canvas", "Expansive creative atmosphere with low distraction"},
    {Mood::creative, "creative-10", "Light Chamber", "Reflective design background with elegant lift"},
    {Mood::creative, "creative-11", "Color Study", "Inventive but restrained soundtrack motion"},
    {Mood::creative, "creative-12", "Sketch Field", "Soft tonal field for concepts and planning"},
    {Mood::creative, "creative-13", "Mild Echo", "Subtle emotional arc for writing sessions"},
    {Mood::creative, "creative-14", "Warm Contour", "Warm texture for visual and strategic thinking"},
    {Mood::creative, "creative-15", "Dream Board", "Dreamlike but work-suitable ambient flow"},
    {Mood::creative, "creative-16", "Golden Outline", "Elegant exploratory atmosphere with premium clarity"},
    {Mood::tempo, "tempo-1", "Clean Run", "Steady groove for repetitive execution"},
    {Mood::tempo, "tempo-2", "Task Current", "Forward pulse with low melodic chatter"},
    {Mood::tempo, "tempo-3", "Inbox Motion", "Continuous rhythmic drive for task clearing"},
    {Mood::tempo, "tempo-4", "Clear Sprint", "A tighter motor rhythm for lighter repetitive work"},
    {Mood::tempo, "tempo-5", "Forward Desk", "Deep-house groove with clean productive momentum"},
    {Mood::tempo, "tempo-6", "Light Conveyor", "Controlled techno pulse for repetitive task flow"},
    {Mood::tempo, "tempo-7", "Pulse Stack", "Steady electronic rhythm for repeated operations"},
    {Mood::tempo, "tempo-8", "Step Line", "Linear groove with disciplined energy"},
    {Mood::tempo, "tempo-9", "Fast Ledger", "Fast but controlled background momentum"},
    {Mood::tempo, "tempo-10", "Workstream", "Structured pulse for productive workflows"},
    {Mood::tempo, "tempo-11", "Quick Relay", "Clean repetitive movement without overload"},
    {Mood::tempo, "tempo-12", "Drive Column", "Focused drive for execution-heavy sessions"},
    {Mood::tempo, "tempo-13", "Motion Grid", "Motorik pace with minimal melodic clutter"},
    {Mood::tempo, "tempo-14", "Light Motor", "Soft-punch rhythm for sustained task flow"},
    {Mood::tempo, "tempo-15", "Sharp Cycle", "Controlled breakbeat energy for busy work"},
    {Mood::tempo, "tempo-16", "Task Runner", "Stable movement for high-volume repetitive tasks"},
}};

}  // namespace mireval
