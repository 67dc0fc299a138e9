; players-low.orc - what stands under the rest.

gSlow = "sub mono upright fretless warm rubber "

instr sub                       ; sine and a little of its octave
  icps mtof p4
  aenv linsegr 0, .03, 1, 1, .92, .18, 0
  aone poscil p5 * .19, icps, gisine
  kgrow linseg 1, .25, .6, 4, .5
  atwo poscil p5 * p5 * .055 * interp(kgrow), icps * 2, gisine
  atwo += aone
  send atwo * aenv, atwo * aenv, p6, p7
endin

instr mono                      ; filtered saw over a sine
  icps = mtof:i(p4) * cent(random:i(-1, 1))
  aenv linsegr 0, .006, 1, .06, .85, .08, 0
  kcut expseg (250 + 1150 * p5) * random:i(.88, 1.12), .16, 210 + 240 * p5, 4, 180
  asaw vco2 .4, icps
  asaw zdf_ladder asaw, kcut, 1.2
  asub poscil .42, icps, gisine
  amix = tanh((asaw + asub) * 1.3) / 1.3 * aenv * p5 * .4
  send amix * 1.1, amix * 1.1, p6, p7
endin

instr upright                   ; gut under the fingertip, the body under the gut
  aL, aR sampled p4, p5, 32, .005, .22, 1500, wobble(2, .7), 2.4
  aL2, aR2 glow p4, .045 * p5, .02, 1.4
  aknock knock .02 * p5, 86, .05, 900
  send (aL + aL2 + aknock) * 2.53, (aR + aR2 + aknock) * 2.53, p6, p7
endin

instr fretless                  ; the tone opens after the finger, then sings a little
  kbend linseg -10, .07, 0, 1, 0
  aL, aR sampled p4, p5, 35, .01, .22, 1600, kbend + vibrato(5, 4.4, .5), 5
  kmwah linseg 350, .12, 500 + 900 * p5, 1.2, 420
  aL zdf_2pole aL, kmwah, .6
  aR zdf_2pole aR, kmwah, .6
  aL2, aR2 glow p4, .05 * p5, .03, 2
  send (aL + aL2) * 1.73, (aR + aR2) * 1.73, p6, p7
endin

instr warm                      ; two oscillators that never agree, one ladder, no hurry
  icps mtof p4
  aenv linsegr 0, .03, 1, .3, .82, .14, 0
  kdrift wobble 3, .5
  kcut linseg 180 + 250 * p5, .12, 240 + 620 * p5, 1.5, 200 + 300 * p5
  a1 vco2 .3, icps * cent(kdrift + 3)
  a2 vco2 .26, icps * cent(-kdrift - 3), 12
  amix zdf_ladder a1 + a2, kcut, 1
  asub poscil .3, icps, gisine
  amix = (amix + asub) * aenv * p5 * .4
  send amix * .93, amix * .93, p6, p7
endin

instr rubber                    ; round and plucked, a drop of pitch at the front
  icps mtof p4
  aenv linsegr 0, .004, 1, .09, .72, .6, .45, .09, 0
  kdrop expseg 1.06, .035, 1, 1, 1
  kcut expseg (300 + 900 * p5) * random:i(.88, 1.12), .09, 200 + 200 * p5, 2, 160
  atri vco2 .5, icps * kdrop, 12
  asq vco2 .16, icps * kdrop, 10
  amix zdf_ladder atri + asq, kcut, 2
  asub poscil .3, icps * kdrop, gisine
  amix = tanh((amix + asub) * 1.5) * aenv * p5 * .3
  send amix * 1.2, amix * 1.2, p6, p7
endin

gSplayers strcat gSheld, strcat(gSstruck, gSlow)
