; Rain Ledger - relaxation - rain kept in two columns: drops on the left, guitar on the right, weather at the bottom
#include "studio.orc"
piece   "Rain Ledger", 58, "E minor"
chords  "A", "Em9:2 Cmaj9:2 Am9:2 Bm7:2"
chords  "B", "G6:2 Dadd9/F#:2 Cmaj9:2 Am9:2"
chords  "C", "Am9:2 Bm7:2 Cmaj9:2 D9sus:2"
chords  "I", "Em9:2 Cmaj9/E:2"
chords  "Z", "Cmaj9/E:2 Em9:4"
form    "IABACZ", 5
space   "chamber", .93, 5600
repeats 1.5, .4
tape    .3, .1
;       player             pattern                                                                      I A B A C Z
veil    "rain",                                                                                       "5 6 5 4 4 5", -8, -.2
veil    "drops",                                                                                      "5 . 3 . 3 5", -1, -.4
veil    "thunder",                                                                                    "3 3 4 3 4 3", -9
wash    "hollow",      59,                                                                            "3 3 . 4 5 3", 0
wash    "bowed",       71,                                                                            ". . 3 3 3 3", -6
wash    "tapestrings", 59,                                                                            ". . 4 . 4 .", -4
bass    "upright",     40, "1-----5-|........|1---..8-|....5...",                                     ". 4 4 4 4 .", -5
bass    "sub",         40, "1-------|--------",                                                       "2 . . . 3 3", -6
keys    "jazz",        62, "..1.2...|..3.1.2.|..0.2...|3...?...",                                     "3 4 . 5 . 4", -3, .3, .35, .2
keys    "jazz",        64, "0.2.1...|..3...2.|0.1.3...|....2...",                                     ". . 4 . 4 .", -3, .3, .35, .2
tune    "felt",        64, "..5---3-|1-------|........|........|..5---1-|3-------|........|........", ". . . 5 . .", 1.5, -.3, .5, .3
tune    "vibes",       64, "3---5---|7-------|........|........|7---5---|3-------|........|........", ". . 4 . . .", 4.5, -.2, .5, .25
tune    "felt",        64, "..3---5-|4-------|........|........|..7---8-|5-------|........|4-------", ". . . . 5 .", 1.5, -.3, .5, .3
tune    "felt",        64, "....5---|3-------|........|....1---|........|........",                   ". . . . . 4", 1.5, -.3, .5, .3
