; Motion Grid - tempo - a motorik drum kit, two chords of guitar and a straight road
#include "studio.orc"
piece   "Motion Grid", 123, "D mixolydian"
chords  "A", "Dadd9:4 Cadd9:2 G6:2"
chords  "B", "Em7:2 Am7:2 Cadd9:2 G/B:2"
form    "AAABBAABBBA", 2
space   "hall", .79, 8200
repeats .5, .35
tape    .2, .4
pump    .15
;       player           pattern              A A A B B A A B B B A
veil    "hiss",                              "3 3 3 3 3 3 3 3 3 3 3", -6
wash    "reed",     59,                      "3 4 4 4 5 5 4 4 5 5 4", -1
wash    "pad",      64,                      ". 3 3 3 4 4 4 4 4 4 3", -3
beat    "kick",          "x...x...x.x.x...", "2 5 7 7 7 7 2 7 7 7 6"
beat    "snare",         "....x.......x...", "3 5 5 5 5 5 . 5 6 6 6", 0, 0, .15
beat    "hat",           "x.x.x.x.x.x.x.x.", "4 5 5 5 5 5 5 5 5 5 5", 1, .15
beat    "ride",          "x.x.x.x.x.x.x.x.", ". . . 3 4 . 4 4 5 4 4", -2, -.2
bass    "upright",  38,  "1.1.1.1.1.1.1.1.", "2 4 5 6 6 6 3 6 6 6 5", 0
bass    "sub",      38,  "1-......1-......", "3 4 4 4 4 4 3 4 4 4 4", -6
stab    "jazz",     62,  "x-x-..x-x-x-..x-", ". 4 5 5 5 4 5 5 5 6 4", -4, .25, .2, .1
keys    "jazz",     66,  "0.1.2.1.0.1.3.1.", "4 . 4 5 . 5 5 . 5 5 .", -3, -.3, .25, .2
keys    "dulcimer", 69,  "0...2...1...3...", ". . 4 . 5 . 4 . 5 6 5", -2, .1, .3, .25
tune    "reed",     69,  "5---------------|3---------------|4---------------|2---------------", ". . . . 4 . . 5 . 5 .", 3, -.1, .4, .15
