; Luminous Draft - creative - soft synthesiser figures, each section one lamp brighter
#include "studio.orc"
piece   "Luminous Draft", 96, "D major"
chords  "A", "Dadd9:2 A/C#:2 Bm7:2 Gmaj9:2"
chords  "B", "Em9:2 F#m7:2 Gmaj9:2 Asus4 A"
chords  "Z", "Gmaj9:2 Dadd9:2"
form    "AABABBAAZ", 3
space   "hall", .88, 9000
repeats .75, .45
tape    .15, .2
pump    .2
;       player         pattern               A A B A B B A A Z
veil    "air",                              "3 3 3 3 3 3 3 3 3", -4
wash    "pad",    60,                       "2 3 4 4 5 6 5 4 3"
wash    "glass",  69,                       ". . . 3 . 4 5 3 3", -2
bass    "sub",    38,  "1---....|1-----..", ". 3 4 . . 4 4 . 3", -3
bass    "mono",   38,  "1..1..1.|1..1..5.", ". . . 4 5 6 . . .", -6
keys    "pluck",  64,  "0.1.2.3.2.1.",      "4 5 5 . 5 . 5 4 .", -2, -.2, .3, .3
keys    "wire",   69,  "0.2.1.3.0.2.4.3.",  ". . 4 4 5 5 6 . .", -5, .25, .3, .35
keys    "pluck",  64,  "0.21.3.2.1.3.2.1",  ". . . 5 . 6 6 . .", -3, -.2, .3, .3
beat    "thud",        "x.......x.......",  ". . . 4 . 5 5 3 .", -4
beat    "shaker",      "..o...o...o...o.",  ". . 3 4 4 4 4 4 .", -3, .2
tune    "bell",   74,  "5---3---|........|3---5---|........|5---4---|........|3---2---|........", ". 4 . . 5 . . 4 .", 1, .1, .5, .35
tune    "rhodes", 74,  "2---4---|5-------|3---5---|6-------|7---5---|6-------|5---4---|3---2---", ". . . 4 . 5 6 . .", 0, -.1, .4, .25
keys    "rhodes", 62,  "*.......",          ". . . . . . 4 4 4", -3, .1, .4
