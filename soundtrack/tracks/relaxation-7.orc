; Still Shelter - relaxation - a music box winding down under a roof in steady rain, strings from a worn reel
#include "studio.orc"
piece   "Still Shelter", 50, "Ab major"
chords  "A", "Abadd9:2 Dbmaj9/Ab:2 Fm7:2 Ebsus4:2"
chords  "B", "Fm9:2 Dbmaj9:2 Bbm9:2 Eb9sus:2"
chords  "C", "Dbmaj9:2 Abadd9/C:2 Bbm9:2 Eb9sus:2"
chords  "Z", "Dbmaj9/Ab:2 Abadd9:3"
form    "ABACZ", 6
space   "plate", .9, 5200
repeats 1, .45
tape    .7, .1
stray   .05
;       player             pattern                                                                      A B A C Z
veil    "rain",                                                                                       "5 4 4 3 5", -7
veil    "room",                                                                                       "4 4 4 5 4", -3
wash    "tapestrings", 60,                                                                            "3 4 . 5 3", -3
wash    "choir",       60,                                                                            ". 3 4 4 3", -2
wash    "glass",       72,                                                                            ". . 3 3 .", -7
bass    "sub",         36, "1-------|--------|1-------|----5---|1-------|--------|1-------|--5-3---", ". 3 4 4 3", -5
bass    "grand",       44, "1-------|--5-----|1-------|....3---",                                     "3 4 . 5 3", -5, -.1
keys    "musicbox",    72, "..1.2...|....3...|..2.1...|........",                                     "4 . 4 . 4", 0, .2, .45, .3
keys    "grand",       60, "*.......|........|....2...|..1.....",                                     ". 4 . 5 .", -5, -.1, .4
keys    "musicbox",    70, "0...2...|..1.....|3...2...|........",                                     ". 3 . . .", -1, .2, .45, .3
tune    "musicbox",    74, "..5---3-|........|........|....6---|..2---1-|........|........|........", ". 5 . . .", 2.2, .2, .45, .3
tune    "grand",       68, "........|....5-3-|2-------|........|........|....3-1-|b-------|........", ". . 4 . .", -.5, .1, .45, .2
tune    "grand",       68, "....5-3-|1-------|........|........|....6-4-|1-------|........|2-------", ". . . 5 .", -.5, .1, .45, .2
tune    "musicbox",    74, "........|........|..8---5-|........|........|........|..9---8-|........", ". . . 5 .", 2.2, .2, .45, .3
