; Clean Run - tempo - light funk a little behind the beat: electric piano, a palm on the strings, a round bass that answers
#include "studio.orc"
piece   "Clean Run", 115, "A minor", 4, .2
chords  "I", "Am9:4 Fmaj9:2 Em7:2"
chords  "A", "Am9:2 Dm9:2 Fmaj9:2 Em7:2"
chords  "B", "Fmaj9:2 G6:2 Am9/C:2 Dm9 Em7"
chords  "C", "Dm9:2 Am9/C:2 Fmaj9:2 Em7:2"
chords  "Z", "Am9:4"
form    "IAABACABBAZ", 1
space   "plate", .62, 4200
repeats .75, .3
tape    .25, .4
pump    .15
;       player             pattern                                                                 I A A B A C A B B A Z
veil    "room",                                                                                   "3 3 3 3 3 3 3 3 3 3 4", -12
wash    "tapestrings", 62,                                                                        ". . 2 4 3 5 3 4 5 4 3", -3
beat    "grain",           "o.x.o.x.o.x.o.xo",                                                    "2 3 4 4 4 3 4 4 5 4 3", -3, .3
beat    "feltkick",        "x.....x...x.....|x.....x...x..o..|x.....x...x.....|x..o..x...x.o...", ". 3 5 5 5 . 5 5 6 5 .", 1
beat    "snap",            "....x.......x...",                                                    ". . 3 4 4 . 4 5 5 4 .", 0, -.1, .2
beat    "snare",           "..o....o.o......|..o....o.o....o.|..o....o.o......|..o....o.o..o.oo", ". . . 3 3 2 3 4 4 3 .", -7, .1, .15
bass    "fretless",    33, "1-....1-..1..5..|1-....1-..7.8-..|1-....1-..1..5..|1-..1.....5-7-..", ". 3 5 5 6 . 5 6 6 5 .", 1
bass    "sub",         33, "1-----------....|1---------5-7-..",                                   "3 . . . . 6 . . . . 3", -3
stab    "rhodes",      62, "x--...x-..x--...|...x--....x-....|x--...x-..x--...|...x--..x-..x-..", "3 4 5 4 6 5 5 5 6 5 3", -1, -.1, .25, .15
stab    "muted",       69, "..x...x.....x..x|..x..x......x...",                                   ". . . 4 4 . 3 5 5 . .", -5, .3, .2, .15
keys    "rhodes",      71, "..........1...2.|................|......2...1.....|................", ". . . . . 4 . . 4 4 .", -4, .25, .3, .35
tune    "rhodes",      76, "........5--3--2-|1-----..........|................|................|........6--5--3-|2-------........|................|................", ". . . . 4 . . 5 . . .", 0, -.15, .35, .3
