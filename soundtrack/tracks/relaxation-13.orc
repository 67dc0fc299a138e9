; Pale Current - relaxation - a slow wash that turns over like water under ice
#include "studio.orc"
piece   "Pale Current", 60, "F# dorian"
chords  "A", "F#m9:2 B6/F#:2 Amaj9:2 E6:2"
chords  "B", "C#m9:2 Bsus4:2 Emaj9:2 F#m9:2"
chords  "Z", "F#m9:4"
form    "AABABZ", 4
space   "hall", .93, 5400
repeats 2, .5
tape    .6, .1
;       player         pattern               A A B A B Z
veil    "stream",                           "5 4 5 4 5 5", -3
wash    "hollow", 60,                       "3 4 5 6 5 4", 1
wash    "glass",  69,                       ". 2 3 4 4 3", -2
bass    "sub",    37,  "1-------|------..", ". 3 4 4 4 3", -4
bass    "rhodes", 49,  "1-------|....5---", "4 4 4 5 5 4", -4, -.1
keys    "vibes",  69,  "....1...|........|..2.....|........", "3 4 . 5 . 4", 2, .2, .5, .35
keys    "vibes",  69,  "..0...2.|....3...", ". . 4 . 6 .", 1, .2, .5, .35
tune    "bowed",  66,  "5-------|--------|6-------|--------|5-------|--------|4-------|3-------", ". 4 . 5 . .", 3, -.2, .5
tune    "bowed",  66,  "5-------|7-------|8-------|4-------|7-------|9-------|8-------|5-------", ". . 4 . 6 .", 3, -.2, .5
