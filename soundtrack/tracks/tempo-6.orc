; Light Conveyor - tempo - clean techno: one wire sequence, moved a little every eight bars
#include "studio.orc"
piece   "Light Conveyor", 126, "B minor"
chords  "A", "Bm9:4 Gmaj9:4"
chords  "B", "Em9:2 F#m7:2 Gmaj9:2 A6:2"
form    "AAAABBAABBA", 3
space   "hall", .84, 9500
repeats .75, .5
tape    .05, .3
pump    .5
;       player        pattern                               A A A A B B A A B B A
veil    "air",                                             "3 3 3 3 3 3 4 3 3 3 3", -6
wash    "dusk",  59,                                       "3 4 4 4 5 5 4 6 5 5 5"
beat    "kick",       "x...x...x...x...",                  "2 6 7 7 7 7 2 7 7 7 6"
beat    "hat",        "..x...x...x...x.",                  "4 5 5 6 6 6 5 6 6 6 5", 1
beat    "hat",        "o.oo.oo.o.oo.oo.",                  ". . 4 4 4 4 4 5 5 5 4", 0, .25
beat    "ride",       "x.x.x.x.x.x.x.x.",                  ". . . 3 4 4 3 4 5 5 4", -2, -.2
beat    "clap",       "....x.......x..o",                  ". . 4 5 5 5 . 5 6 6 4", -1, 0, .25
beat    "tom",        "..............x.|..........x..x..", ". . 3 4 4 4 3 5 5 5 .", -4, -.3
bass    "mono",  35,  "..1...1...1...1.|..1...1...1.1.5.", ". 5 5 6 6 6 . 6 6 6 5", -3
bass    "sub",   35,  "1---------------",                  "2 . . . . . 3 . . . .", -4
keys    "wire",  64,  "0.1.0.2.0.1.3.1.",                  "4 5 5 5 . . 6 5 . . 5", -2, -.1, .3, .3
keys    "wire",  64,  "0.21.03.1.20.3.1",                  ". . . . 6 6 . . 6 6 .", -2, -.1, .3, .3
keys    "wire",  76,  "0..1..0..2..0.1.",                  ". . 4 4 . 5 4 5 6 . .", -7, .3, .35, .45
stab    "chord", 60,  "...x-...........|................", ". . 4 4 5 4 5 4 5 5 4", -2, .1, .4, .4
tune    "bell",  74,  "5-------........|................|3-------........|2-------........", ". . . . 4 . 5 . 5 . .", 0, 0, .5, .4
