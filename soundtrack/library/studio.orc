; studio.orc - the whole library. A track starts with #include "studio.orc"; README.md teaches the notation.

sr = 44100
ksmps = 64
nchnls = 2
0dbfs = 1
#ifndef SOLO
#define SOLO #-1#               ; csound --omacro:SOLO=3 renders lane 3 alone
#end
#ifndef TRACE
#define TRACE #0#               ; csound --omacro:TRACE=1 prints every note
#end

#include "notation.orc"
#include "players.orc"
#include "players-held.orc"
#include "players-struck.orc"
#include "players-low.orc"
#include "percussion.orc"
#include "weather.orc"
#include "desk.orc"
