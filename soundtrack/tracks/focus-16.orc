; Deep Channel - focus - a low clear current with a soft pulse far down
#include "studio.orc"
piece   "Deep Channel", 104, "A dorian"
chords  "A", "Am7:4 D6/A:4"
chords  "B", "Cmaj7:2 G6/B:2 Am7:4"
chords  "Z", "Am7:4"
form    "AAABABBAAZ", 4
space   "hall", .85, 7000
repeats .75, .45
tape    .1, .15
pump    .25
;       player         pattern               A A A B A B B A A Z
veil    "brown",                            "4 4 5 4 4 4 4 5 4 4", -2
wash    "dusk",   53,                       "3 4 5 5 4 5 5 4 5 3", 1
wash    "organ",  60,                       ". . 3 3 3 4 4 3 3 2", -5, 0, .5
bass    "sub",    33,  "1-1-..1-|1-..1---", ". 4 4 5 4 5 5 4 4 4", -1
bass    "mono",   33,  "..1...1.|..1...5.", ". . . 4 . 4 4 . . .", -8
beat    "thud",        "x.......x.......",  ". . 4 6 4 6 6 6 4 5", -1
beat    "shaker",      "..o...o...o...o.",  ". . . 3 3 4 4 4 3 3", -3, .25
beat    "block",       "......o.........",  ". . . 4 . 4 4 4 . .", -5, -.25, .3
keys    "wire",   57,  "0.1.2.1.0.1.3.1.",  "4 4 5 . 5 . . 5 4 .", -5, -.15, .3, .3
keys    "wire",   60,  "0..2..1.0..3..1.",  ". . . 5 . 6 6 . 4 .", -6, .15, .3, .35
tune    "bell",   76,  "5-------|........|........|........|3-------|........|2-------|........", ". . 4 . . 5 . 4 . 4", 0, .15, .5, .35
