; Golden Outline - creative - harp and guitar drawing the edge, vibraphone gilding it, strings late
#include "studio.orc"
piece   "Golden Outline", 98, "D mixolydian"
chords  "A", "Dadd9:2 Cadd9:2 G/B:2 Am7:2"
chords  "B", "Em7:2 G6:2 Am9:2 Cmaj9:2"
chords  "Z", "Cadd9:2 Dadd9:2"
form    "AABABBAAZ", 3
space   "hall", .9, 9500
repeats .75, .3
tape    .1, .1
;       player           pattern               A A B A B B A A Z
veil    "air",                                "3 3 3 3 3 3 3 3 3", -2
wash    "reed",     57,                       ". 2 3 3 4 4 4 3 3", -3
wash    "glass",    69,                       "3 3 4 4 4 5 5 4 3", 1
bass    "fretless", 38,  "1-----5-|1---....", ". 4 4 5 5 6 6 4 4", -2
bass    "cello",    38,  "1-------|5-------", ". . . 4 . 5 6 3 .", -2, .2
keys    "harp",     67,  "0.2.1.3.|..2.1.0.", "4 5 5 . . 5 . 5 4", 0, .2, .3, .1
keys    "harp",     70,  "0123.21.|4.3.2.1.", ". . . 5 5 . 6 . .", 0, .2, .3, .1
keys    "jazz",     62,  "..0...1.|..2...1.", ". . 4 . 5 5 6 5 .", -3, -.3, .3, .15
keys    "celesta",  76,  "....0.2.|..1.3...", ". . . 4 4 . 5 4 .", -1, .3, .4, .25
tune    "vibes",    76,  "5-----3-|........|4-----3-|........|2-----4-|........|3-----1-|........", ". 4 . . . 5 . 4 .", 2, .1, .4, .25
tune    "horn",     62,  "3-------|2-------|4-------|6-------|5-------|3-------|7---5---|3-------", ". . . 4 . 5 . . .", 1, -.2, .5
tune    "strings",  74,  "5---6---|7-------|6---4---|2-------|5---3---|1-------|5---4---|3-------", ". . . . . 5 6 . .", 0, .15, .5
