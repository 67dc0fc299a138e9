; Pale Current - relaxation - a wash in five that turns over like water under ice, one soft whistle reflected in it
#include "studio.orc"
piece   "Pale Current", 57, "F# dorian", 5
chords  "A", "F#m9:2 B6/F# Amaj9:2 E6"
chords  "B", "C#m9:2 Bsus4 Emaj9:2 B6/D#"
chords  "C", "Amaj9 E6/G# F#m9:2 C#m9 Bsus4"
chords  "Z", "B6/F# F#m7:3"
form    "ABACBZ", 5
space   "plate", .93, 5400
repeats 2, .5
tape    .6, .1
;       player          pattern                                                                A B A C B Z
veil    "stream",                                                                            "5 4 4 4 4 5", -5
veil    "wind",                                                                              "2 2 . 3 2 2", -8
wash    "drift",    60,                                                                      "3 4 . 5 5 3", 0
wash    "glass",    72,                                                                      ". . 5 3 4 .", -4
wash    "bowl",     60,                                                                      "3 . 3 . . 3", -5
bass    "sub",      37, "1---------|------....|1---------|------5---",                       ". 3 4 4 4 3", -5
bass    "rhodes",   49, "1---------|....5-----",                                             ". 4 4 4 4 4", -4, -.1
keys    "vibes",    66, "....1.....|........2.|..0.......|......?...",                       "3 4 . 4 . 4", 1, .2, .5, .35
keys    "vibes",    69, "..0...2...|....3.....|..1...3...|........2.",                       ". . 4 . 5 .", 0, .2, .5, .35
keys    "felt",     60, "0.....2...|....1.....|..........",                                  ". . . 4 4 .", -3, -.2, .4, .2
tune    "softlead", 66, "..5-----7-|--------..|..........|..6-----2-|--------..|..........", ". 4 . . . .", -1, -.15, .55, .3
tune    "softlead", 66, "..5---3---|..........|..........|..2-----5-|--------..|..........", ". . 4 . . .", -1, -.15, .55, .3
tune    "softlead", 66, "..3-----5-|7-------..|..........|..8-----7-|5-----....|..........", ". . . 5 . .", -1, -.15, .55, .3
tune    "bowed",    66, "..........|..5-------|2-------..|..........|..6-------|3-------..", ". . . . 4 .", 2, .2, .55
