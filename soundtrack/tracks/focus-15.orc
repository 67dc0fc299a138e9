; Static Bloom - focus - one colour opening very slowly, petals of harp at the edge
#include "studio.orc"
piece   "Static Bloom", 90, "G major"
chords  "A", "Gmaj9:4 Cmaj9/G:4"
chords  "B", "Em9:4 Am9:2 D9sus:2"
chords  "Z", "Gmaj9:4"
form    "ABABABAZ", 5
space   "hall", .93, 7800
repeats 1.5, .45
tape    .3, .1
;       player         pattern               A B A B A B A Z
veil    "leaves",                           "4 4 4 4 4 4 4 4", -4
wash    "pad",    62,                       "2 4 4 5 6 6 5 3", 1
wash    "reed",   57,                       ". 3 3 3 4 4 3 2", -3
wash    "glass",  69,                       ". . . 2 3 4 3 2", -2
bass    "sub",    38,  "1-------|--------", "3 3 4 4 4 5 4 3", -4
bass    "cello",  43,  "1-------|--------", ". 3 . 4 . 5 . 3", -3, -.2
keys    "harp",   64,  "0...1...|..2.....|....3...|........", "4 . 5 . 5 . 4 .", -1, .2, .35, .2
keys    "harp",   66,  "0.2...1.|....3...|..4.....|........", ". 4 . 5 . 6 . 4", -1, .2, .35, .2
keys    "vibes",  74,  "......?.|........|........|..?.....", ". . 4 . 4 5 4 .", 0, -.2, .5, .35
tune    "bowed",  67,  "5-------|--------|3-------|--------|3-------|--------|2-------|--------", ". . . 4 . 5 . .", 2, -.1, .5
