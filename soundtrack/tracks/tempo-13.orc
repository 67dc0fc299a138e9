; Motion Grid - tempo - a motorik kit on a straight road, two guitars in eighths, harmonium haze over the fields
#include "studio.orc"
piece   "Motion Grid", 123, "D mixolydian"
chords  "A", "Dadd9:2 Dadd9:2 Cadd9:2 G6:2"
chords  "B", "Em7:2 Am7:2 Cadd9:2 G/B:2"
chords  "C", "G6:2 G6/B:2 Am7:2 Cadd9:2"
chords  "Z", "Dadd9:4"
form    "AAABACABCBAZ", .7
space   "chamber", .58, 6800
repeats .5, .25
tape    .2, .4
pump    .1
;       player          pattern                                                                     A A A B A C A B C B A Z
veil    "hiss",                                                                                    "3 3 3 3 3 3 3 3 3 3 3 3", -8
wash    "reed",     61,                                                                            "2 3 3 4 5 6 4 5 6 5 4 3", -1
beat    "brush",        "x.x.x.x.|x.x.x.x.|x.x.x.x.|x.x.x.xo",                                     ". 3 4 4 5 2 4 5 3 5 4 2", -1, .2, .1
beat    "thud",         "x...x.x.|x...x.x.|x...x.x.|x...x...",                                     ". 3 5 6 6 2 6 6 4 6 5 .", 0
beat    "snare",        "..x...x.|..x...x.|..x...x.|..x...x.|..x...x.|..x...x.|..x...x.|..x.oxox", ". . 3 4 4 . 4 5 3 5 3 .", -2, .05, .12
beat    "hat",          "x.xxx.xx|x.xxx.xx|x.xxx.xx|x.xxxxxx",                                     ". . . 3 3 . 3 3 3 3 . .", -5, -.2
beat    "tom",          "........|........|........|......x.|........|........|........|....xoxx", ". . 3 4 4 4 4 4 5 5 . .", -4, -.25, .15
bass    "upright",  38, "1.1.1.1.|1.1.1.1.|1.1.1.1.|1.1.1.5.",                                     ". 4 5 . 6 . 5 . . . 5 .", 1
bass    "upright",  38, "1.1.1.11|1.1.1.1.|1.1.1.11|1.5.7.8.|1.1.1.11|1.1.1.1.|1.1.1.11|1.1.3.5.", ". . . 6 . . . 6 6 6 . .", 1
bass    "sub",      38, "1-------|------..",                                                       "1 . 2 3 3 5 3 3 5 4 . 2", -5
keys    "jazz",     62, "01210121|01230121",                                                       "3 4 5 . 4 . 5 . 5 . 4 3", -2, -.35, .2, .15
keys    "muted",    67, "0.1.2.1.|0.1.3.1.|0.1.2.1.|0.2.3.2.",                                     ". . 4 5 5 4 4 5 . 6 4 .", -2, .35, .2, .2
stab    "jazz",     64, "x-x-..x-|........|x-x-..x-|......x-",                                     ". . . 4 . . 4 4 5 5 . .", -5, .15, .2
keys    "dulcimer", 69, "0...2...|........|1...3...|........",                                     ". . . . 5 4 . . 4 5 . .", -3, .1, .3, .25
tune    "swell",    69, "5-------|----....|3-------|----....|........|4-------|2-------|........", ". . . . 4 . . 5 . 5 . .", 1, -.1, .4, .15
