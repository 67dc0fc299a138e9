; Clear Frame - focus - one still chord in a clean frame, a bell at each of its corners
#include "studio.orc"
piece   "Clear Frame", 76, "F lydian", 6
chords  "A", "Fmaj9:2 G6/F:1 Am9:1"
chords  "B", "Dm9:2 Em7:1 Am9:1"
chords  "C", "Cmaj9:2 G6/B:1 Em7:1"
chords  "D", "Fmaj9:2 Cadd9/E:1 Am7:1"
chords  "Z", "Fmaj9:4"
form    "ABDCABCDZ", 2
space   "plate", .85, 8500
repeats 1.5, .35
tape    .1, .05
;       player          pattern                                                  A B D C A B C D Z
veil    "air",                                                                  "3 3 4 4 5 5 4 4 4", -4
wash    "hollow",  60,                                                          "3 4 4 5 5 6 5 4 3"
wash    "prism",   65,                                                          ". . 3 4 4 5 5 4 3", -2
wash    "choir",   59,                                                          ". 3 . 4 . 4 5 3 .", -3
bass    "sub",     38,  "1-----------|--------....",                            ". 3 4 4 4 4 5 4 3", -6
bass    "cello",   45,  "1-----------|------------",                            ". . . 4 . 4 5 . .", -4, -.2
keys    "bell",    72,  "0...........|............|............|............",  "4 4 4 . 4 . 5 4 4", 1, .15, .5, .3
keys    "bell",    76,  "............|......1.....|............|....2.......",  ". . 4 . 5 . . 4 .", 0, -.2, .5, .3
keys    "muted",   62,  "..0.....1...|............|....2.......|......1.....",  ". . . 4 . 5 4 . .", -4, .25, .3, .25
keys    "kalimba", 69,  "........?...|............|....?.......|..........?.",  ". . . . 4 4 . 4 .", -3, -.3, .45, .3
keys    "felt",    60,  "............|..1.........|............|....0...2...",  ". 4 . 4 . 5 . . .", -2, .1, .4, .2
