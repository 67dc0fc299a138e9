; Soft Grid - focus - marimba and plucked tone on the same squared paper
#include "studio.orc"
piece   "Soft Grid", 96, "E minor"
chords  "A", "Em9:2 Gmaj9:2 Am9:2 Cmaj9:2"
chords  "B", "Bm7:2 Cmaj9:2 Dadd9:2 Em9:2"
chords  "Z", "Em9:4"
form    "AAABABABZ", 4
space   "hall", .83, 6500
repeats .75, .4
tape    .15, .15
;       player           pattern               A A A B A B A B Z
veil    "room",                               "4 4 4 4 4 4 4 4 4", -4
wash    "pad",      59,                       "3 4 4 4 5 4 5 5 3", -1
wash    "hollow",   64,                       ". . 3 . 3 . 4 4 2", -3
bass    "sub",      40,  "1---....|1-----..", ". 4 4 4 5 4 5 5 3", -3
bass    "fretless", 40,  "1.....5.|........", ". . . 4 . 5 . 5 .", -5, -.1
keys    "marimba",  64,  "0.1.2.1.",          "4 5 5 . 5 . 5 . 4", -2, -.25, .25, .1
keys    "marimba",  64,  "0.2.1.3.",          ". . . 5 . 5 . 6 .", -2, -.25, .25, .1
keys    "pluck",    69,  ".0...1..|.2...1..", ". 4 4 . 5 4 5 5 .", -5, .25, .3, .3
keys    "pluck",    69,  "...3...2|...1...0", ". . 4 . 5 . 5 6 .", -6, .1, .3, .3
beat    "shaker",        "o...o...o...o...",  ". . 3 4 4 4 4 4 .", -3, .2
tune    "clarinet", 64,  "5-------|........|5---3---|........|3-------|........|2---1---|........", ". . . . 4 . 5 . .", 0, .1, .4, .2
tune    "bell",     76,  "4-------|2-------|........|3-------|2-------|........|5-------|........", ". . . 4 . . . 5 .", 0, .1, .5, .3
