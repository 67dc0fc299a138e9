; Mild Echo - creative - electric piano phrases answered by their own repeats
#include "studio.orc"
piece   "Mild Echo", 86, "G minor"
chords  "A", "Gm9:2 Ebmaj9:2 Bbadd9:2 F/A:2"
chords  "B", "Cm9:2 Dm7:2 Ebmaj9:2 Fsus4 F"
chords  "Z", "Ebmaj9:2 Gm9:2"
form    "AABABBAZ", 4
space   "hall", .87, 6500
repeats 1.5, .5
tape    .35, .2
;       player           pattern               A A B A B B A Z
veil    "hiss",                               "3 3 3 3 3 3 3 3", -4
veil    "room",                               "3 3 3 3 3 3 3 3", -4
wash    "pad",      58,                       "2 3 3 4 5 5 4 3", -1
wash    "strings",  60,                       ". . 3 . 4 6 3 2", -1
bass    "sub",      36,  "1-----..|1---....", ". 3 4 4 . 5 4 .", -3
bass    "upright",  36,  "1-----5-|1---....", ". . 4 . 5 6 . .", -2
stab    "rhodes",   60,  "x---....|....x---", "4 4 . 5 . . 5 4", -3, -.1, .3, .15
keys    "rhodes",   63,  "..0.2.1.|..3.....", ". . 5 . 5 6 . .", -2, -.1, .3, .3
keys    "musicbox", 74,  "......?.|........|..?.....|........", ". 3 4 . 5 . 4 4", 0, .3, .45, .4
beat    "brush",         "....o.......o...",  ". . . 3 3 4 4 3", -2, .15
tune    "rhodes",   74,  "5.3.....|........|5.3.1...|........|3.2.....|........|2.4.....|........", ". 4 . 5 . . 5 .", 2, .1, .3, .5
tune    "cello",    58,  "4-----3-|1-------|6-----5-|4-------|3-----5-|8-------|7---6---|5-------", ". . 4 . 5 6 . .", 0, -.2, .45, .1
tune    "rhodes",   74,  "6---5---|3-------|4---6---|5-------|3---1---|5-------|4-------|7-------", ". . . . . 5 . .", 1, .1, .35, .4
