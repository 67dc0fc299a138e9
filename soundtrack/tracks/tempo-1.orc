; Clean Run - tempo - electric piano and round bass, a little behind the beat
#include "studio.orc"
piece   "Clean Run", 116, "A minor", 4, .2
chords  "A", "Am9:2 Dm9:2 Fmaj9:2 Em7:2"
chords  "B", "Fmaj9:2 G6:2 Am9:2 C/E Em7"
form    "AAABBAABBA", 3
space   "hall", .8, 7500
repeats .75, .35
tape    .2, .45
pump    .3
;        player         pattern                                A A A B B A A B B A
veil     "hiss",                                              "3 3 3 3 3 4 3 3 3 4", -6
wash     "pad", 60,                                           ". 2 3 4 4 5 4 4 4 4", -2
beat     "kick",        "x...x...x...x..o",                   "4 6 6 6 6 3 6 6 6 5"
beat     "clap",        "....x.......x...",                   ". . 5 5 6 . 5 6 6 .", 0, 0, .25
beat     "brush",       "....o.......o..o",                   "4 4 4 5 5 5 4 5 5 4", 1, .15
beat     "shaker",      "o.X.o.X.o.X.o.Xo",                   ". 4 5 5 5 5 5 5 6 5", 1, .3
beat     "hat",         "..x...x...x..ox.",                   "3 4 5 5 5 4 5 5 5 4", 0, -.2
bass     "mono", 33,    "1-....1-..1..5..|1-....7-..8..5..",  ". 5 6 6 6 . 6 6 6 4", -2
bass     "sub", 33,     "1-------|-----...",                  ". . . . . 5 . . . .", -4
stab     "rhodes", 62,  "x--...x-..x--...|...x--....x-....",  "4 5 5 6 6 6 6 6 6 4", -1, 0, .25, .15
keys     "vibes", 74,   "..0...1...2.....|....3...1.......",  ". . . 4 5 4 . 5 5 .", 0, .25, .35, .35
tune     "rhodes", 76,  "........5--3--2-|1-----..........|........5--6--5-|3-----..........", ". . . . 4 5 . . 5 .", 1, -.15, .35, .3
