; Task Current - tempo - muted guitar over a low pulse, hand drums instead of hats
#include "studio.orc"
piece   "Task Current", 114, "E minor", 4, .08
chords  "A", "Em9:4 Cmaj9:2 Am9:2"
chords  "B", "Cmaj9:2 Dadd9:2 Em9:4"
form    "AAABBAABBA", 3
space   "hall", .8, 6200
repeats .75, .4
tape    .15, .35
pump    .3
;       player          pattern                               A A A B B A A B B A
veil    "hiss",                                              "3 3 3 3 3 3 3 3 3 3", -7
wash    "pad",     59,                                       "3 4 4 5 5 5 4 5 5 4", -1
beat    "kick",         "x...x...x...x...",                  "3 6 7 7 7 2 7 7 7 6"
beat    "conga",        "..x..o..x.o..o..|..x..o.ox.o..ox.", "4 4 5 5 5 6 5 6 5 5", 1, -.25, .15
beat    "conga",        "o.....x.......x.",                  ". . 4 4 5 4 5 5 5 4", -2, .3, .15
beat    "shaker",       "o.xoo.xoo.xoo.xo",                  ". 4 5 5 5 4 5 5 5 4", 1, .2
beat    "rim",          "....x.......x...",                  ". . 4 5 5 3 5 5 5 4", 0, -.1, .25
bass    "sub",     40,  "1..1..1.1..1..5.|1..1..1.1.7.5...", "3 5 6 6 6 3 6 6 6 4", -2
bass    "mono",    40,  "......8.......7.",                  ". . . 5 5 . . 5 6 5", -7
stab    "muted",   64,  "..x-..x-...x-...|..x-..x-..x-..x-", "4 5 5 6 6 5 5 6 6 5", -2, .2, .25, .2
keys    "muted",   64,  "0..1..2..1..3..1",                  ". 4 4 5 5 . 5 5 6 .", -4, -.25, .3, .3
keys    "rhodes",  62,  "*...............",                  ". . . 4 4 5 . 5 5 4", -2, .1, .35
tune    "marimba", 71,  "5-----3-........|................|5-----7-........|................", ". . . 4 . 5 . . 5 .", 1, .1, .35, .3
