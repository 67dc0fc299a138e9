; Warm Contour - creative - jazz guitar, fretless bass and brushes, rounded at every corner
#include "studio.orc"
piece   "Warm Contour", 90, "Eb mixolydian", 4, .14
chords  "A", "Eb6:2 Dbmaj9:2 Abmaj9:2 Bbm7:2"
chords  "B", "Cm7:2 Fm9:2 Dbmaj9:2 Bbm9:2"
chords  "Z", "Dbmaj9:2 Eb6:2"
form    "AABABBAZ", 3
space   "hall", .81, 5600
repeats .75, .3
tape    .35, .25
;       player           pattern               A A B A B B A Z
veil    "hiss",                               "3 3 3 3 3 3 3 3", -4
wash    "pad",      60,                       "2 3 3 4 4 5 4 3", -1
wash    "reed",     57,                       ". . 3 . 3 4 3 2", -3
bass    "fretless", 36,  "1-----5-|1---7-5-", "3 4 4 5 5 6 6 .", -1
bass    "sub",      36,  "1-------|------..", ". . . . . . . 4", -3
stab    "jazz",     62,  "x---..x-|..x---..", "4 4 . 5 . . 5 .", -2, -.2, .25, .1
keys    "jazz",     62,  "0.2.1.3.|..2.4.1.", ". . 5 . 5 6 . .", -2, -.2, .3, .15
beat    "brush",         "o...x...o...x..o",  ". 3 4 4 4 5 5 4", 1, .15
beat    "ride",          "x...x..ox...x..o",  ". . 2 . 3 3 4 3"
beat    "rim",           "....x.......x...",  ". . . 3 4 4 4 5", -3, -.25
keys    "vibes",    70,  "....0.2.|........|..1.....|........", ". 4 4 . 5 . 5 4", -1, .25, .4, .25
tune    "jazz",     70,  "5---3-2-|1---....|5---3-7-|....2---|1---5-3-|....1---|2---4-5-|........", ". . . 5 . . 5 .", 2, .1, .3, .2
tune    "clarinet", 63,  "3-----1-|5-------|4---2---|1-------|7---5---|4-------|5---7---|4-------", ". . 4 . 5 6 . .", 1, .1, .4, .1
