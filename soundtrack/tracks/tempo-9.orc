; Fast Ledger - tempo - marimba sums in sixteenths, quick feet and a level voice
#include "studio.orc"
piece   "Fast Ledger", 126, "E dorian", 4, .04
chords  "A", "Em7:2 A6:2 Em7:2 Bm7:2"
chords  "B", "Gmaj9:2 A6:2 Dmaj9:2 Em7:2"
form    "AAABBAABBBA", 3
space   "hall", .8, 8500
repeats .5, .35
tape    .1, .25
pump    .25
;       player           pattern                               A A A B B A A B B B A
wash    "pad",      59,                                       "3 4 4 4 4 5 4 4 5 5 4", -1
beat    "kick",          "x...x...x...x...",                  "5 6 7 7 7 7 3 7 7 7 6"
beat    "hat",           "xoxoxoxoxoxoxoxo",                  "3 4 4 5 5 5 4 5 5 5 5", -1, .15
beat    "open",          "..x...x...x...x.",                  ". . . 4 5 5 3 4 5 5 4", -4, -.15
beat    "clap",          "....x.......x...",                  ". . 4 5 5 3 5 6 5 5 .", -1, 0, .15
beat    "conga",         "..o..x....o..x.o",                  ". 4 4 5 5 5 4 5 5 5 4", 0, -.3, .15
beat    "block",         "x.....o...x.....",                  ". . 3 4 4 4 4 4 5 5 4", -4, .35, .15
bass    "fretless", 40,  "1..1..5.1..1..7.|1..1..5.8..7.5..", ". 5 5 6 6 6 4 6 6 6 5", 1
bass    "sub",      40,  "1---1---1---1---",                  "3 4 4 4 4 4 . 4 4 4 4", -4
keys    "marimba",  64,  "0.12.10.2.31.2.1",                  "4 5 5 . 5 . 5 . . 5 4", -1, -.15, .2, .15
keys    "marimba",  64,  "01.20.13.21.03.2",                  ". . . 5 . 5 . 6 6 . .", -1, -.15, .2, .15
keys    "pluck",    71,  "0.....1.....2...",                  ". . 4 4 5 5 . 5 6 6 4", -4, .25, .3, .4
stab    "reed",     62,  "x-------........|................", ". . . 4 5 . 4 . 5 5 4", 0, .1, .4
tune    "flute",    71,  "5-------3-------|................|6-------4-------|................", ". . . . 4 . . 5 . 5 .", -2, .1, .4, .2
