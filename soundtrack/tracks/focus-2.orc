; Clear Frame - focus - a still chord with clean edges, a bell marking the corners
#include "studio.orc"
piece   "Clear Frame", 76, "F lydian"
chords  "A", "Fmaj9:2 G6/F:2 Em7:2 Am9:2"
chords  "B", "Dm9:2 Em7:2 Cmaj9:2 G6:2"
chords  "Z", "Fmaj9:4"
form    "AABABAZ", 4
space   "hall", .88, 8000
repeats 1, .35
tape    .1, .05
;       player         pattern               A A B A B A Z
veil    "air",                              "4 4 5 4 5 4 4", -3
wash    "hollow", 60,                       "3 4 4 5 5 4 3"
wash    "pad",    55,                       ". 3 3 4 4 3 3", -1
wash    "glass",  69,                       ". . 2 . 4 3 .", -2
bass    "sub",    38,  "1-------|------..", ". 3 4 4 4 4 3", -4
bass    "muted",  46,  "1---....|....1...", ". 4 4 4 5 5 4", -3, -.2
keys    "muted",  62,  "..0...1.|..2...1.", ". . 4 . 5 5 .", -4, .2, .25, .2
keys    "bell",   72,  "0.......|........|......2.|........", "4 . 4 4 . 4 4", 1, .15, .45, .3
keys    "bell",   74,  "..2.....|....1...|........|....3...", ". 4 . . 5 . .", 1, .15, .45, .3
