; players-held.orc - what holds a note: pads, voices, bows, winds, organs. Nothing here stands still.

gSheld = " pad dusk glass hollow reed bowed strings cello flute clarinet horn organ \
choir tapeorgan tapestrings prism drift swell softlead bowl "

instr pad                       ; warm sheet with a slow tide in the filter
  aL, aR weave p4, p5, giwarm, gihaze, min(2.4, p3 * .45), 3.2, .45
  kcut rspline 500 + p5 * 900, 900 + p5 * 2200, .05, .15
  aL butterlp aL, max(kcut, mtof:i(p4) * 1.2)
  aR butterlp aR, max(kcut, mtof:i(p4) * 1.2)
  send aL * 0.72, aR * 0.72, p6, p7
endin

instr dusk                      ; darker sheet for drones, with breath in it
  aL, aR weave p4, p5, gidark, gisteam, min(3, p3 * .45), 4, .4
  send aL * 0.58, aR * 0.58, p6, p7
endin

instr glass                     ; thin bright sheet, turning in the light
  aL, aR weave p4, p5 * .7, giglass, giverre, min(1.8, p3 * .4), 3, .6
  send aL * .69, aR * .69, p6, p7
endin

instr hollow                    ; odd partials only, like breath over pipes
  aL, aR weave p4, p5, gihollow, gisteam, min(1.6, p3 * .4), 2.6, .45
  kcut rspline 600 + p5 * 1500, 800 + p5 * 2600, .08, .25
  aL butterlp aL, max(kcut, mtof:i(p4) * 1.2)
  aR butterlp aR, max(kcut, mtof:i(p4) * 1.2)
  send aL * .642, aR * .642, p6, p7
endin

instr reed                      ; a small harmonium, bellows never quite still
  aL, aR weave p4, p5, gireed, giwarm, min(.5, p3 * .3), 1.1, .35
  kbel rspline .75, 1, .3, 1
  kcut = 600 + p5 * 2400 * kbel
  aL butterlp aL * interp(kbel), kcut
  aR butterlp aR * interp(kbel), kcut
  send aL * .6, aR * .6, p6, p7
endin

instr bowed                     ; metal bars under a bow: they bloom late and hang
  icps mtof p4
  aenv linsegr 0, min(1.1, p3 * .45), 1, 1, 1, 1.8, 0
  k1 rspline .6, 1, .25, .8
  k2 rspline .6, 1, .25, .8
  k3 rspline .1, 1, .1, .4
  aL poscil interp(k1) * p5 * .2, icps * cent(random:i(-2.5, -.5)), gisine
  aR poscil interp(k2) * p5 * .2, icps * cent(random:i(.5, 2.5)), gisine
  a2 poscil interp(k3) * p5 * p5 * .035, icps * 3.99, gisine
  a3 poscil p5 * .05, icps * 2, gisine
  abow noise .012 * p5 * (1.1 - k1), 0
  abow butterbp abow, limit(icps * 4, 900, 4000), 700
  a3 = a3 + abow
  send (aL + aR * .35 + a2 + a3) * aenv * .4, (aR + aL * .35 - a2 + a3) * aenv * .4, p6, p7
endin

instr strings                   ; a section: sampled bows inside a wide one, breathing
  iatt min .7, p3 * .3
  kdrift wobble 4, .6
  aL, aR sampled p4, p5, 48, iatt, 1.3, 3600, kdrift
  aL2, aR2 weave p4, p5, gibowed, giwarm, iatt * 1.3, 1.8, .35
  kcut rspline 700 + p5 * 2200, 900 + p5 * 3400, .08, .3
  aL2 butterlp aL2, max(kcut, mtof:i(p4) * 1.2)
  aR2 butterlp aR2, max(kcut, mtof:i(p4) * 1.2)
  send (aL * .7 + aL2 * .64) * 0.62, (aR * .7 + aR2 * .64) * 0.62, p6, p7
endin

instr cello                     ; one bow: its hair, a vibrato that comes late, a second desk behind
  iatt min .35, p3 * .3
  kbend = vibrato(7, 4.7, .7) + wobble(3, .7)
  aL, aR sampled p4, p5, 42, iatt, .7, 2300, kbend
  aL2, aR2 weave p4, p5, gibowed, gidark, iatt * 1.5, .9, .3
  aL2 butterlp aL2, 500 + 1500 * p5
  aR2 butterlp aR2, 500 + 1500 * p5
  ahair breath p4, .012 * p5, iatt
  send (aL + aL2 * .28 + ahair) * 0.61, (aR + aR2 * .28 + ahair) * 0.61, p6, p7
endin

instr flute                     ; wood rather than silver: much air, vibrato when the note has settled
  iatt min .1, p3 * .3
  kvib vibrato 6, 4.6, .6
  aL, aR sampled p4, p5, 73, iatt, .35, 2000, kvib
  acore linsegr 0, iatt * 1.4, 1, 1, 1, .3, 0
  acore poscil acore * p5 * .06 * (1 + kvib * .012), mtof(p4) * cent(kvib), gisine
  aair breath p4, .05 * p5, iatt
  acore += aair
  send (aL * .75 + acore) * .72, (aR * .75 + acore) * .72, p6, p7
endin

instr clarinet                  ; the low register, played to oneself
  iatt min .09, p3 * .3
  kvib vibrato 2.5, 4.2, .9
  aL, aR sampled p4, p5, 71, iatt, .3, 1600, kvib + wobble(2, .8)
  acore linsegr 0, iatt * 1.4, 1, 1, 1, .28, 0
  acore poscil acore * p5 * .05, mtof(p4) * cent(kvib), gisine
  aair breath p4, .022 * p5, iatt
  acore += aair
  send (aL * .8 + acore) * 1.12, (aR * .8 + acore) * 1.12, p6, p7
endin

instr horn                      ; opens as it swells
  iatt min .28, p3 * .3
  aL, aR sampled p4, p5, 60, iatt, .7, 1300, wobble(3, .6) + vibrato(2.5, 4, 1)
  kopen linseg 300 + 300 * p5, iatt * 2.5, 500 + 1300 * p5, 4, 400 + 800 * p5
  acore linsegr 0, iatt * 1.6, 1, 1, 1, .6, 0
  acore poscil acore * p5 * .06, mtof:i(p4), gisine
  aL butterlp aL, kopen
  aR butterlp aR, kopen
  send (aL + acore) * 0.75, (aR + acore) * 0.75, p6, p7
endin

instr organ                     ; four drawbars and a slow rotor
  icps mtof p4
  aenv linsegr 0, .014, 1, 1, .95, .14, 0
  krot lfo 3, .75 + .2 * p5
  kdraw rspline .5, 1, .1, .3
  icent random -2, 2
  a1 poscil .2, icps * cent(icent + krot), gisine
  a2 poscil .12, icps * 2 * cent(-icent), gisine
  a3 poscil .07 * kdraw, icps * 3 * cent(icent), gisine
  a4 poscil .05 * p5 * kdraw, icps * 4 * cent(krot), gisine
  amix = (a1 + a2 + a3 + a4) * aenv * p5 * .28
  aside interp krot * .06
  send amix * (1 + aside), amix * (1 - aside), p6, p7
endin

instr choir                     ; voices far back, their mouths between ah and oo
  iah, if1 vowel 0, p4
  ioo, if2 vowel 1, p4
  icps mtof p4
  aenv linsegr 0, min(1.5, p3 * .4), 1, 1, 1, 2.2, 0
  kmouth rspline 0, 1, .06, .18
  kmouth = limit(kmouth * (.5 + .6 * p5), 0, 1)
  kbreath rspline .75, 1, .1, .35
  kbend wobble 4, .9
  aopen interp kmouth * kbreath
  around interp (1 - kmouth * .7) * kbreath
  a1 poscil aenv * aopen * p5 * .2, icps / if1 * sr / ftlen(iah) * cent(kbend), iah, random:i(0, 1)
  a2 poscil aenv * around * p5 * .2, icps / if2 * sr / ftlen(ioo) * cent(-kbend), ioo, random:i(0, 1)
  iside random .2, .42
  send (a1 * (.5 + iside) + a2 * (.9 - iside)) * 1.17, (a1 * (.9 - iside) + a2 * (.5 + iside)) * 1.17, p6, p7
endin

instr tapeorgan                 ; stopped pipes from a loop of tape: no two keys of it agree, and the reel leans
  icps = mtof:i(p4) * cent(random:i(-2.5, 2.5))
  aenv linsegr 0, min(.14, p3 * .3) * random:i(.6, 1.3), .85, .5, 1, 1, .94, .4, 0
  kwow = lfo(2.2, random:i(.7, 1.1)) + wobble(2.5, 2.6)
  kworn rspline .72, 1, .3, 1.4
  a1 poscil p5 * .2, icps * cent(kwow), gipipe
  a2 poscil p5 * .13, icps * cent(kwow * .7 + 2), gipipe, .3
  ahiss noise .006, 0
  aL = tanh((a1 + a2 * .6 + ahiss) * aenv * interp(kworn) * 3) * .33
  aR = tanh((a1 * .6 + a2 + ahiss) * aenv * interp(kworn) * 3) * .33
  icut = (700 + 1700 * p5) * random:i(.8, 1.2)
  aL butterlp aL, icut
  aR butterlp aR, icut
  send aL * .372, aR * .372, p6, p7
endin

instr tapestrings               ; violins in a keyboard of tapes: narrow, grainy, leaning out of tune and back
  icps = mtof:i(p4) * cent(random:i(-2, 2))
  iatt min .22, p3 * .3
  aenv linsegr 0, iatt, .9, .6, 1, 8, .6, .55, 0
  kwow = lfo(2.5, random:i(.5, .8)) + wobble(2.5, 2)
  kworn rspline .8, 1, .5, 2
  a1 poscil p5 * .14, icps * cent(kwow), giviol, random:i(0, 1)
  a2 poscil p5 * .14, icps * cent(kwow * .6 + 5), giviol, random:i(0, 1)
  a3 poscil p5 * .14, icps * cent(kwow * .6 - 5), giviol, random:i(0, 1)
  aw interp kworn
  aL = (a1 * .7 + a2) * aenv * aw
  aR = (a1 * .7 + a3) * aenv * aw
  kcut rspline 900 + 1700 * p5, 1100 + 2200 * p5, .2, .8
  aL butterhp butterlp(aL, kcut), 170
  aR butterhp butterlp(aR, kcut), 170
  send aL * .552, aR * .552, p6, p7
endin

instr prism                     ; the partials of each held note light up one after another
  icps mtof p4
  aenv linsegr 0, min(1.2, p3 * .35), 1, 1, 1, 2.4, 0
  iturn random 5, 9
  iway = random:i(0, 1) < .5 ? -1 : 1
  kturn phasor iway / iturn, random:i(0, 1)
  itop = limit(7000 / icps, 1, 6)
  k2 = (.5 + .5 * cos(6.2832 * kturn)) ^ 3
  k3 = (.5 + .5 * cos(6.2832 * (kturn - .2))) ^ 3
  k4 = (.5 + .5 * cos(6.2832 * (kturn - .4))) ^ 3
  k5 = (.5 + .5 * cos(6.2832 * (kturn - .6))) ^ 3
  k6 = (.5 + .5 * cos(6.2832 * (kturn - .8))) ^ 3
  a1 poscil .14, icps * cent(random:i(-2, 2)), gisine
  a1b poscil .14, icps * cent(random:i(-2, 2)), gisine
  a2 poscil interp(k2) * .1, icps * 2 * cent(random:i(-2, 2)), gisine
  a3 poscil interp(k3) * .085 * (itop > 2 ? 1 : 0), icps * 3, gisine
  a4 poscil interp(k4) * .07 * (itop > 3 ? 1 : 0), icps * 4, gisine
  a5 poscil interp(k5) * .05 * (itop > 4 ? p5 : 0), icps * 5, gisine
  a6 poscil interp(k6) * .05 * (itop > 5 ? p5 : 0), icps * 6, gisine
  aL = a1 + a2 * .8 + a3 * .3 + a4 * .9 + a5 * .3 + a6 * .7
  aR = a1b + a2 * .4 + a3 * .9 + a4 * .3 + a5 * .9 + a6 * .4
  send aL * aenv * p5 * .366, aR * aenv * p5 * .366, p6, p7
endin

instr drift                     ; every voice of the chord comes and goes in its own time, and its brightness with it
  aL, aR weave p4, p5, giwarm, gireed, min(2, p3 * .4), 3.4, .3
  ktide rspline .35, 1.1, .07, .2
  ktide limit ktide, .35, 1.1
  atide interp ktide
  kcut = max(350 + (500 + 2000 * p5) * ktide * ktide, mtof:i(p4) * 1.2)
  aL butterlp aL * atide, kcut
  aR butterlp aR * atide, kcut
  send aL * .9, aR * .9, p6, p7
endin

instr swell                     ; an electric guitar under the volume pedal, a slow chorus behind it
  iatt min .5, p3 * .35
  aL, aR sampled p4, p5, 27, .004, .9, 2000, wobble(2, .5)
  apedal linseg 0, iatt, .7, iatt, 1, 5, 1.6, 1, 1.6
  ksway lfo 1, random:i(.4, .6)
  asway interp ksway
  amono = (aL + aR) * .5 * apedal
  acho1 vdelay3 amono, 13 + asway * 1.4, 30
  acho2 vdelay3 amono, 17 - asway * 1.4, 30
  aL = aL * apedal + acho1 * .7
  aR = aR * apedal + acho2 * .7
  aglowL, aglowR glow p4, .03 * p5, iatt * 1.5, 5
  ieven = ampdb((p4 - 62) * .2) * 1.12
  send (aL + aglowL) * ieven, (aR + aglowR) * ieven, p6, p7
endin

instr softlead                  ; one oscillator, nearly a whistle; the vibrato comes late
  icps mtof p4
  iatt min .08, p3 * .25
  aenv linsegr 0, iatt, 1, .4, .86, 1, .86, .25, 0
  kvib vibrato 9, 4.9, .45
  kbend linseg -14, .09, 0, 1, 0
  kcps = icps * cent(kvib + kbend + random:i(-2, 2))
  asaw vco2 .3, kcps, 0
  atri vco2 .5, kcps, 12
  kopen linseg .6, iatt * 2, 1, 2, .7
  kcut = limit((icps * 1.6 + 300 + 900 * p5) * kopen, 200, 5000)
  amix zdf_ladder asaw + atri, kcut, .8
  aair breath p4, .012 * p5, iatt
  amix = (amix * aenv + aair) * p5 * .5
  send amix * .5, amix * .5, p6, p7
endin

instr bowl                      ; a singing bowl touched with felt; its partials beat slowly
  icps mtof p4
  aenv expsegr .001, .03, .6, .5, 1, 9, .05, 6, .005, 1.6, .001
  ahigh expsegr .001, .02, 1, 2.5, .03, 5, .001, 1.2, .001
  ibeat random .25, .6
  a1 poscil .2, icps - ibeat * .5, gisine
  a2 poscil .2, icps + ibeat * .5, gisine
  a3 poscil .045 * p5, icps * 2.74, gisine
  a4 poscil .045 * p5, icps * 2.74 + ibeat * 2.3, gisine
  a5 poscil .014 * p5, limit(icps * 5.21, 20, 9000), gisine
  aL = (a1 + a2 * .55) * aenv + (a3 + a4 * .4 + a5) * ahigh
  aR = (a2 + a1 * .55) * aenv + (a4 + a3 * .4 + a5) * ahigh
  send aL * p5 * .385, aR * p5 * .385, p6, p7
endin
