; Inbox Motion - tempo - organ chords that answer each other over soft house drums, a hat that never looks up
#include "studio.orc"
piece   "Inbox Motion", 116, "C minor", 4, .1
chords  "I", "Cm9:4 Abmaj9:4"
chords  "A", "Cm9:2 Fm9:2 Cm9/Bb:2 Bb9sus:2"
chords  "B", "Abmaj9:2 Bb6:2 Gm7:2 Cm9:2"
chords  "C", "Fm9:2 Gm7:2 Abmaj9:2 Bb9sus:2"
chords  "Z", "Cm9:4"
form    "IAABBACABBZ", .6
space   "plate", .58, 5600
repeats .75, .35
tape    .15, .35
pump    .35
;       player           pattern                                                                     I A A B B A C A B B Z
wash    "tapeorgan", 60,                                                                            "2 3 3 4 4 4 5 4 5 5 3", -3
beat    "tick",          "..x...x...x...x.",                                                        "2 3 3 4 4 3 3 3 4 4 3", -2, .3, .15
beat    "kick",          "x...x...x...x...",                                                        ". 3 4 5 5 5 2 5 6 5 .", -1
beat    "tamb",          "..o...x...o...x.",                                                        ". . 2 3 4 4 . 3 4 4 .", -5, -.25
beat    "hat",           "oxooxooxooxoxoxo",                                                        ". . . 2 3 . 2 . 3 3 .", -9, .2
beat    "clap",          "....x.......x...",                                                        ". . . 3 4 3 . 4 5 4 .", -3, 0, .25
beat    "block",         "...o......o..o..|...o......o.....|...o......o..o..|...o..o...o.oo.o",     ". . 2 3 3 3 3 3 4 3 .", -5, .35, .25
bass    "warm",      36, "..1..1....1...1.|..1..1....1.5-..|..1..1....1...1.|..1..1....7.8-..",     ". 4 5 5 6 5 . 5 6 5 .", 0
bass    "sub",       36, "1-----------....|1-----------5-..",                                       "1 . . . . . 5 . . . 2", -5
stab    "organ",     64, "..x...x....x....|................|..x...x....x.x..|................",     "3 4 5 5 5 5 . 5 6 5 3", -1, -.2, .25, .2
stab    "organ",     69, "................|..x-..x....x-...|................|..x...x..x..x-..",     ". . 4 4 5 4 . 4 5 5 .", -3, .3, .3, .3
stab    "dub",       60, "..........x-----|................",                                       ". . . . 4 . 5 . 5 4 3", -4, .1, .35, .35
keys    "vibes",     70, "0.....1.........|......2...1.....",                                       "3 . . . . 4 4 . . . .", -4, .2, .35, .3
tune    "softlead",  67, "....5---|3-------|........|........|....4---|2-------|........|........", ". . . 4 . . 4 . 5 . .", -2, -.1, .4, .25
