; players-struck.orc - what is struck, plucked or short: keys, mallets, guitars, small synthesisers.

gSstruck = "felt grand rhodes bell vibes marimba kalimba harp nylon muted jazz celesta musicbox dulcimer pluck wire chord \
hang spiccato dub pulse "

instr felt                      ; upright piano through a strip of cloth, on a tape that is not quite straight
  aL, aR sampled p4, p5, 0, .009, .55, 1300, wobble(2.2, 1.1)
  aL2, aR2 glow p4, .05 * p5, .04, 3.5
  athump knock .03 * p5, 74, .05, 320
  adecay linseg 1, 7, .1, 1, .05
  send ((aL * 1.4 + aL2) * adecay + athump) * 1.12, ((aR * 1.4 + aR2) * adecay + athump) * 1.12, p6, p7
endin

instr grand                     ; the lid half open
  aL, aR sampled p4, p5, 0, .003, .45, 6000
  aL2, aR2 glow p4, .03 * p5, .1, 4
  athump knock .008 * p5, 92, .04, 500
  adecay linseg 1, 9, .1, 1, .05
  send (aL * 1.3 + aL2) * adecay + athump, (aR * 1.3 + aR2) * adecay + athump, p6, p7
endin

instr rhodes                    ; two operators and a tine, tremolo across the room
  icps = mtof:i(p4) * cent(random:i(-1.5, 1.5))
  ikey limit 1.5 - p4 / 120, .5, 1.2
  kindex expseg (.2 + 1.5 * p5) * ikey * random:i(.9, 1.1), .9, (.25 + .3 * p5) * ikey, 5, .1
  abody foscili 1, icps, 1, 1, kindex, gisine
  atine foscili expseg(.16 * p5 * ikey, .3, .01, 3, .001), icps, 1, 14, .6, gisine
  aenv linsegr 0, .004, 1, .02, .9, .35, 0
  adecay expseg 1, 4.5, .12, 6, .02
  asub poscil .25, icps, gisine
  aknock knock .02 * p5, 110, .03, 700
  atrem poscil .24, 3.4, gisine, random:i(0, .2)
  amix = ((abody + atine + asub) * aenv * adecay * p5 * p5 + aknock) * .22
  send amix * (1 + atrem) * .86, amix * (1 - atrem) * .86, p6, p7
endin

instr bell                      ; soft struck metal
  p3 = min(p3, 5.4)
  icps = mtof:i(p4) * cent(random:i(-2, 2))
  a1 foscili 1, icps, 1, 3.5, expseg(.8 * p5 * random:i(.85, 1.15), 1.2, .02, 6, .01), gisine
  a2 poscil .5, icps * cent(2.5), gisine
  aenv expsegr .001, .006, 1, 3.2, .01, 2, .001, .6, .001
  a1 *= aenv * p5 * p5 * .2
  a2 *= aenv * p5 * p5 * .2
  send a1 + a2 * .6, a1 - a2 * .3, p6, p7
endin

instr vibes                     ; the motor on its slowest belt
  aL, aR sampled p4, p5, 11, .002, .9, 2800, 0, 7
  aL2, aR2 glow p4, .035 * p5, .01, 5
  amotor poscil .16, 2.9 * random:i(.99, 1.01), gisine, random:i(0, 1)
  send (aL + aL2) * (1 + amotor) * .98, (aR + aR2) * (1 - amotor) * .98, p6, p7
endin

instr marimba                   ; with the tubes under it
  aL, aR sampled p4, p5, 12, .003, .5, 2800, 0, 1.4
  aL2, aR2 glow p4, .07 * p5, .008, 1.1
  aknock knock .025 * p5, 178, .03, 900
  send (aL + aL2 + aknock) * 1.23, (aR + aR2 + aknock) * 1.23, p6, p7
endin

instr kalimba                   ; tines on a hollow box
  aL, aR sampled p4, p5, 108, .006, .6, 3000, 0, 3
  aL2, aR2 glow p4, .014 * p5, .006, 1.4
  aknock knock .012 * p5, 164, .06, 1200
  aL = tanh((aL + aL2 + aknock) * 14) / 4.6
  aR = tanh((aR + aR2 + aknock) * 14) / 4.6
  send aL, aR, p6, p7
endin

instr harp                      ; fingertips, and the sound board after them
  aL, aR sampled p4, p5, 46, .003, .9, 3600, 0, 4.5
  aL2, aR2 glow p4, .06 * p5, .03, 2.4
  aknock knock .015 * p5, 122, .07, 1400
  ieven = ampdb((p4 - 62) * .12) * 1.04
  send (aL + aL2 + aknock) * ieven, (aR + aR2 + aknock) * ieven, p6, p7
endin

instr nylon                     ; close to the sound hole
  aL, aR sampled p4, p5, 24, .004, .4, 2800, wobble(1.5, .6), 4
  aL2, aR2 glow p4, .025 * p5, .02, 2.2
  aknock knock .02 * p5, 104, .09, 1500
  ieven = ampdb((p4 - 58) * .04) * 2.1
  send (aL + aL2 + aknock) * ieven, (aR + aR2 + aknock) * ieven, p6, p7
endin

instr muted                     ; guitar strings under the palm
  aL, aR sampled p4, p5, 28, .005, .2, 2200, 0, 1
  aL2, aR2 glow p4, .02 * p5, .006, .35
  aknock knock .015 * p5, 118, .05, 900
  ieven = ampdb((p4 - 62) * .15) * 2.66
  send (aL + aL2 + aknock) * ieven, (aR + aR2 + aknock) * ieven, p6, p7
endin

instr jazz                      ; flat strings, the tone knob closed
  aL, aR sampled p4, p5, 26, .004, .4, 2100, wobble(1.5, .6), 5
  aL2, aR2 glow p4, .05 * p5, .015, 2
  aknock knock .02 * p5, 132, .04, 1100
  ieven = ampdb((62 - p4) * .12) * 1.01
  send (aL + aL2 + aknock) * ieven, (aR + aR2 + aknock) * ieven, p6, p7
endin

instr celesta                   ; felt hammers on small plates
  aL, aR sampled p4, p5, 8, .003, .8, 3000, 0, 3.5
  aL2, aR2 glow p4, .05 * p5, .01, 2.2
  aknock knock .008 * p5, 210, .03, 900
  send (aL + aL2 + aknock) * 1.18, (aR + aR2 + aknock) * 1.18, p6, p7
endin

instr musicbox                  ; in a wooden case, the spring a little tired
  aL, aR sampled p4, p5, 10, .002, .9, 2900, wobble(3, 1.4), 4
  aL2, aR2 glow p4, .02 * p5, .006, 1.8
  aknock knock .008 * p5, 240, .03, 1600
  send (aL + aL2 + aknock) * 2.24, (aR + aR2 + aknock) * 2.24, p6, p7
endin

instr dulcimer                  ; felt on the hammers, two strings to a note
  aL, aR sampled p4, p5, 15, .006, .7, 2900, 0, 4
  aL2, aR2 glow p4, .03 * p5, .02, 1.8
  aknock knock .012 * p5, 148, .06, 1300
  send (aL + aL2 + aknock) * 1.38, (aR + aR2 + aknock) * 1.38, p6, p7
endin

instr pluck                     ; two soft oscillators and a quick filter
  p3 = min(p3, 2.4)
  icps = mtof:i(p4) * cent(random:i(-2, 2))
  aenv expsegr .001, .004, 1, .35, .06, 2, .001, .2, .001
  kcut expseg (600 + 2800 * p5) * random:i(.85, 1.15), .12, 460, 3, 280
  atri vco2 .6, icps, 12
  asaw vco2 .2, icps * cent(5)
  amix zdf_ladder atri + asaw, max(kcut, icps * 1.2), 1
  ashade butterlp amix, 900
  amix *= aenv * p5 * .71
  ashade *= aenv * p5 * .3
  send (amix + ashade) * .92, (amix - ashade * .4) * .92, p6, p7
endin

instr wire                      ; short square tone for sequences
  p3 = min(p3, 1.2)
  icps mtof p4
  aenv expsegr .001, .003, 1, .16, .2, .7, .001, .09, .001
  kcut expseg (450 + 2300 * p5 * p5) * random:i(.8, 1.2), .09, 360 + 380 * p5, 2, 250
  asq vco2 .5, icps * cent(random:i(-2, 2)), 10
  aout zdf_ladder asq, max(kcut, icps * 1.2), 1.8
  send aout * aenv * p5, aout * aenv * p5, p6, p7
endin

instr chord                     ; house stab: one detuned saw on each side
  icps mtof p4
  aenv linsegr 0, .006, 1, .12, .6, .5, .3, .16, 0
  kcut expseg (450 + 3200 * p5 * p5) * random:i(.88, 1.12), .22, 320 + 650 * p5, 4, 250
  aL vco2 .34, icps * cent(random:i(5, 8))
  aR vco2 .34, icps * cent(random:i(-8, -5))
  aL zdf_ladder aL, max(kcut, icps * 1.2), 1
  aR zdf_ladder aR, max(kcut, icps * 1.2), 1
  send aL * aenv * p5 * 0.67, aR * aenv * p5 * 0.67, p6, p7
endin

instr hang                      ; a handpan: octave and twelfth above the note, the shell below it
  p3 = min(p3, 4.6)
  icps = mtof:i(p4) * cent(random:i(-1.5, 1.5))
  ibright = (.25 + .9 * p5) * limit(1.6 - p4 / 110, .4, 1.2) * random:i(.85, 1.15)
  a1 expsegr .001, .004, 1, 2.2, .03, 2, .001, .5, .001
  a2 expsegr .001, .003, 1, 1.3, .03, 2, .001, .5, .001
  a3 expsegr .001, .002, 1, .6, .03, 1, .001, .4, .001
  aL poscil a1, icps * cent(-1.2), gisine
  aR poscil a1, icps * cent(1.2), gisine
  aoct poscil a2 * .42 * ibright, icps * 2 * cent(random:i(0, 3)), gisine
  afif poscil a3 * .3 * ibright, icps * 3 * cent(random:i(-3, 3)), gisine
  aknock knock .09, 92, .09, 900
  send (aL + aoct + afif * .6 + aknock) * p5 * .174, (aR + aoct * .7 + afif + aknock) * p5 * .174, p6, p7
endin

instr spiccato                  ; short soft bows, off the string before they have begun
  p3 = min(p3, 1.5)
  iatt = .022 * random:i(.8, 1.3)
  aL, aR sampled p4, p5, 45, .004, .2, 2200
  aL2, aR2 weave p4, p5, gibowed, giwarm, iatt, .25, .2
  ashort expsegr 1, .05 + iatt, 1, .3, .12, 1.2, .001, .2, .001
  aL2 butterlp aL2, 500 + 1800 * p5
  aR2 butterlp aR2, 500 + 1800 * p5
  ahair breath p4, .02 * p5, .01
  send (aL * .3 + aL2 * 1.4 + ahair) * ashort * 1.15, (aR * .3 + aR2 * 1.4 + ahair) * ashort * 1.15, p6, p7
endin

instr dub                       ; a chord in the fog: struck once, and a long way down
  icps mtof p4
  aenv linsegr 0, .012, 1, .16, .55, .9, .16, 1.2, 0
  kcut expseg (380 + 1500 * p5) * random:i(.85, 1.15), .3, 300 + 300 * p5, 3, 180
  aL vco2 .3, icps * cent(random:i(3, 7)), 0
  aR vco2 .3, icps * cent(random:i(-7, -3)), 0
  asub poscil .12, icps, gisine
  aL zdf_ladder aL + asub, max(kcut, icps * 1.2), 1.6
  aR zdf_ladder aR + asub, max(kcut, icps * 1.2), 1.6
  send aL * aenv * p5 * .7, aR * aenv * p5 * .7, p6, p7
endin

instr pulse                     ; a soft sequenced tone; the filter travels over two bars
  p3 = min(p3, 1.2)
  icps mtof p4
  iphase = (times:i() * gibpm / 60 / gimetre / 2) % 1
  iopen = .5 - .5 * cos(6.2832 * iphase)
  aenv expsegr .001, .006, 1, .22, .25, .8, .001, .12, .001
  kcut expseg (420 + 900 * p5) * (1 + 1.6 * iopen), .16, (300 + 250 * p5) * (1 + iopen), 2, 250
  asq vco2 .4, icps * cent(random:i(-2, 2)), 2, .5 - .2 * iopen
  atri vco2 .3, icps * cent(4), 12
  aout zdf_ladder asq + atri, max(kcut, icps * 1.2), 1.1
  aout *= aenv * p5 * .6
  iside = .25 * sin(6.2832 * iphase)
  send aout * (1 + iside) * .612, aout * (1 - iside) * .612, p6, p7
endin
