; Pulse Stack - tempo - plucked pulses stacked to four, short bows among them, and taken down again one by one
#include "studio.orc"
piece   "Pulse Stack", 119, "G minor"
chords  "A", "Gm9:2 Bbmaj9:2 Ebmaj9:2 F6:2"
chords  "B", "Cm9:2 Ebmaj9:2 Gm9/Bb:2 Dm7:2"
chords  "C", "Ebmaj9:2 F6:2 Cm9:2 Dm7:2"
chords  "Z", "Gm9:4"
form    "AABACBABCAZ", 2
space   "hall", .82, 9000
repeats .75, .4
tape    .1, .2
pump    .25
stray   .03
;       player          pattern                                                                     A A B A C B A B C A Z
wash    "choir",    62,                                                                            ". 3 4 3 6 4 4 5 6 4 3", -3
beat    "grain",        "x.o.x.o.x.o.x.oo",                                                        "2 3 3 3 3 4 4 4 3 3 2", -1, .3
beat    "thud",         "x...x...x...x...",                                                        ". . 3 5 2 6 5 6 3 4 .", 0
beat    "tick",         "..x...x...x...x.",                                                        ". 2 3 3 . 4 3 4 . 3 .", -2, -.25, .15
beat    "snap",         "....x.......x...|....x.......x..o",                                       ". . . 3 . 4 4 4 . 3 .", -3, .05, .25
beat    "open",         "......x.......x.",                                                        ". . . . . 3 . 3 . . .", -6, -.1
beat    "djembe",       "........|........|........|......o.|........|........|........|..o.o.xo", ". . 3 3 3 4 3 4 4 3 .", -2, .2, .2
bass    "rubber",   36, "1.....1...1.....|1.....1...1...8.|1.....1...1.....|1.....1..7..5.8.",     ". . 4 5 . 5 5 6 . 4 .", 0
bass    "sub",      36, "1-------1-----..",                                                        "2 3 . . 4 . . . 5 . 3", -2
keys    "pluck",    62, "0...1...2...1...|0...1...2...3...",                                       "4 4 5 5 4 5 5 5 5 4 3", -1, -.35, .25, .2
keys    "pluck",    67, "..0...2...1...3.|..0...2...1...2.",                                       ". 4 4 5 . 5 5 5 4 4 .", -2, .35, .25, .25
stab    "spiccato", 60, "x..x..x...x..x..|x..x..x...x.x...",                                       ". . . 4 4 5 . 5 5 . .", -5, .1, .3, .15
keys    "pulse",    67, ".0.1...0.1...0.2|.0.1...0.1...2.1",                                       ". . 4 . . 5 4 5 . . .", -3, 0, .25, .3
keys    "glass",    74, "0.......|........|1.......|........|0.......|........|2.......|........", ". . . . 4 . . 4 5 4 3", -4, .1, .5
stab    "strings",  62, "x---------------|----------------",                                       ". . . . 4 . . . 5 . .", -4, 0, .45
