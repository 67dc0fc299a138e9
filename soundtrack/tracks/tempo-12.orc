; Drive Column - tempo - a driving eighth-note bass, wide saws held well back
#include "studio.orc"
piece   "Drive Column", 121, "F# minor"
chords  "A", "F#m9:4 E6:2 Dmaj9:2"
chords  "B", "Bm9:2 C#m7:2 F#m9:4"
form    "AAAABBAABBA", 3
space   "hall", .83, 8000
repeats .75, .4
tape    .1, .45
pump    .55
;       player          pattern                               A A A A B B A A B B A
veil    "room",                                              "3 3 3 3 3 3 4 3 3 3 3", -5
wash    "strings", 57,                                       "3 4 4 4 5 5 5 6 5 5 5", -1
wash    "dusk",    52,                                       "3 3 3 3 4 4 4 4 4 4 4", -2
beat    "kick",         "x...x...x...x...",                  "2 6 7 7 7 7 2 7 7 7 6"
beat    "snare",        "....x.......x...",                  ". 4 5 5 5 5 . 5 6 5 5", -1, 0, .25
beat    "hat",          "x.x.x.x.x.x.x.x.",                  "4 5 5 6 6 6 5 6 6 6 5", 0, .15
beat    "open",         "..............x.|..x...........x.", ". . 3 4 4 4 3 5 5 5 .", -2, -.2
beat    "tom",          "...........x..x.",                  ". . 3 4 4 4 4 5 5 4 .", -4, .25
bass    "mono",    37,  "1.1.1.1.1.1.1.1.|1.1.1.1.1.1.5.7.", "3 5 6 6 6 6 3 6 6 6 5", -3
bass    "sub",     37,  "1-------1-------",                  ". . . . . . 4 . . . .", -4
stab    "chord",   61,  "x-----..........|......x---......", ". . 4 5 5 6 4 5 6 6 4", -2, 0, .35, .3
keys    "wire",    73,  "0...0...1...1...",                  ". . 4 . 5 5 . 5 . 6 5", -6, .25, .3, .45
tune    "rhodes",  68,  "5-------3-------|................|4-------3-------|................", ". . . . 5 . 5 . 5 5 .", 0, -.15, .4, .3
