; Rain Ledger - relaxation - rain kept in two columns: drops on the left, guitar on the right
#include "studio.orc"
piece   "Rain Ledger", 58, "E minor"
chords  "A", "Em9:2 Cmaj9:2 Am9:2 Bm7:2"
chords  "B", "G6:2 Dadd9/F#:2 Cmaj9:2 Am9:2"
chords  "Z", "Em9:2"
form    "ABABAZ", 5
space   "hall", .9, 5600
repeats 1.5, .4
tape    .3, .1
;       player          pattern               A B A B A Z
veil    "rain",                              "6 5 6 5 4 5", -4, -.25
veil    "thunder",                           "4 4 5 4 5 4", 1
wash    "hollow",  59,                       "2 3 4 5 4 3", -1
wash    "strings", 55,                       ". . . 4 3 2", -1
bass    "sub",     36,  "1-------|------..", ". 3 4 5 4 3", -4
bass    "jazz",    45,  "1-----5-|....8...", "4 4 5 5 5 4", -2, .1
keys    "jazz",    62,  "..1.2...|..3.1.2.", "4 5 4 . 5 .", -1, .3, .3, .2
keys    "jazz",    62,  "..1.2.4.|3...1.2.", ". . . 6 . 4", -1, .3, .3, .2
tune    "felt",    71,  "..5---3-|........|..5---1-|........|..3---1-|........|..2---5-|........", ". . 4 . 5 .", 1, -.3, .45, .3
tune    "vibes",   71,  "3---5-..|........|7---5-..|........|5---3-..|........|1-------|..3-1---", ". 3 . 5 . .", 2, -.2, .5, .25
tune    "felt",    71,  "5-----3-|1-------", ". . . . . 4", 1, -.3, .45, .3
