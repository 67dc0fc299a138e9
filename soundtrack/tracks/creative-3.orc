; Paper Horizon - creative - kalimba and plucked bass trading small folded ideas
#include "studio.orc"
piece   "Paper Horizon", 92, "G mixolydian", 4, .1
chords  "A", "Gadd9:2 F:2 C/E:2 Dm7:2"
chords  "B", "Em7 Dm7 C:2 Am7:2 F:2"
chords  "Z", "C Dm7 Gadd9:2"
form    "AABABBAAZ", 3
space   "hall", .84, 8500
repeats .75, .4
tape    .15, .15
;        player          pattern                            A A B A B B A A Z
veil     "room",                                           "4 4 4 4 4 4 4 4 4", -4
wash     "pad", 59,                                        "3 3 4 4 5 5 4 4 4", -1
keys     "kalimba", 67,  "0.2.1.3.|..2.4...",              "5 5 . 5 . . 6 5 .", 2, .15, .3, .2
keys     "kalimba", 67,  "01.2.3.1|..2.1.0.",              ". . 5 . 6 6 . . .", 2, .15, .3, .2
keys     "nylon", 59,    "0...1.2.|..3...1.",              ". 4 4 5 5 5 5 4 .", -2, -.25, .25
bass     "upright", 36,  "1..1..5.|1.....3.",              ". 4 5 5 5 6 5 4 .", -1
beat     "rim",          "....x.......x...",               ". . . 4 4 5 4 . .", -2, -.2
beat     "shaker",       "o.xoo.xoo.xoo.xo",               ". . 3 4 4 5 4 3 .", -1, .3
beat     "tom",          "x.........x.....",               ". . . . 4 5 4 . .", -5, .1
tune     "marimba", 72,  "5.3.2---|........|1.2.3---|........|5.4.3---|........|2.1.2---|........", ". . . 5 . . 5 . .", 2, -.1, .35, .2
stab     "strings", 64,  "x-------|--------",              ". . . . 4 6 3 . 4", -1, 0, .5
keys     "kalimba", 67,  "*.......",                       ". . . . . . . . 4", 2, .15, .4
