; percussion.orc - drums and small noises. The kick and the thud push the music down as far as pump says.

gSdrums = " kick thud clap snare hat open ride shaker rim brush tom conga block "

instr kick
  apitch expseg 170, .05, 58, .3, 50
  aenv expseg .001, .002, 1, .11, .5, .2, .001
  abody poscil aenv, apitch, gisine
  aclick noise expseg(.12, .008, .0001, 1, .0001), 0
  aclick butterlp aclick, 3200
  abody = tanh(abody * 1.5) * .46 * p5 + aclick * p5
  gkpump linseg 1 - giduck, .05, 1 - giduck, .24, 1
  send abody, abody, p6, p7
endin

instr clap
  aenv linseg 0, .001, 1, .009, .2, .001, 1, .009, .2, .001, 1, .02, .35, .14, 0
  aL noise aenv, 0
  aR noise aenv, 0
  aL butterbp aL, 1250, 900
  aR butterbp aR, 1350, 900
  send aL * p5, aR * p5, p6, p7
endin

opcode sizzle, a, ii            ; seconds, lowest frequency
  idecay, ilow xin
  aenv expseg .001, .001, 1, idecay, .001, 1, .001
  aout noise aenv, 0
  aout butterhp aout, ilow
  xout butterlp(aout, 13000)
endop
instr hat
  aout sizzle .05 + .03 * p5, 7200
  send aout * p5 * 0.57, aout * p5 * 0.57, p6, p7
endin
instr open
  aout sizzle .28, 6400
  send aout * p5 * .4, aout * p5 * .4, p6, p7
endin
instr shaker
  aenv linseg 0, .028, 1, .05, 0, 1, 0
  aout noise aenv, 0
  aout butterbp aout, 6200, 3600
  send aout * p5 * 0.29, aout * p5 * 0.29, p6, p7
endin
instr rim
  atick poscil expseg(.3, .03, .001, 1, .001), 1720, gisine
  ahiss noise expseg(.25, .012, .001, 1, .001), 0
  aout butterbp atick + ahiss, 1800, 1400
  send aout * p5, aout * p5, p6, p7
endin
instr brush
  aenv linseg 0, .03, 1, .13, 0, 1, 0
  aL noise aenv, 0
  aR noise aenv, 0
  aL butterbp aL, 2600, 2800
  aR butterbp aR, 2900, 2800
  send aL * p5 * 0.26, aR * p5 * 0.26, p6, p7
endin
instr tom
  apitch expseg 150, .08, 96, 1, 80
  aout poscil expseg(.5, .4, .001, 1, .001), apitch, gisine
  send aout * p5 * 0.7, aout * p5 * 0.7, p6, p7
endin

instr thud                      ; a kick with a pillow in it
  apitch expseg 105, .06, 52, .3, 47
  aenv expseg .001, .006, 1, .13, .5, .22, .001
  abody poscil aenv, apitch, gisine
  abody = tanh(abody * 1.2) * .5 * p5
  gkpump linseg 1 - giduck * .8, .05, 1 - giduck * .8, .26, 1
  send abody, abody, p6, p7
endin
instr snare                     ; half skin, half wire, tuned low
  askin poscil expseg(.35, .09, .01, .3, .001), expseg(230, .05, 178, 1, 170), gisine
  aenv expseg .001, .001, 1, .13, .02, .2, .001
  awire noise aenv * .5, 0
  awire butterbp awire, 2400, 3600
  aout = (askin + awire) * p5 * .5
  send aout, aout, p6, p7
endin
instr ride
  aring foscili expseg(.2, .5, .03, .6, .001), 3170, 1, 1.483, 2.6, gisine
  ahiss noise expseg(.2, .12, .02, .6, .001), 0
  aout butterhp aring * .35 + ahiss, 5200
  aout butterlp aout, 12000
  send aout * p5 * .9, aout * p5 * .9, p6, p7
endin
instr conga
  apitch expseg 262, .02, 214, .4, 206
  aout poscil expseg(.5, .16, .02, 1, .001), apitch, gisine
  aslap noise expseg(.1, .01, .001, 1, .0001), 0
  aslap butterbp aslap, 1400, 1200
  send (aout + aslap) * p5 * .4, (aout + aslap) * p5 * .4, p6, p7
endin
instr block
  aout poscil expseg(.4, .035, .01, .2, .001), 820, gisine
  atop poscil expseg(.12, .015, .005, .2, .001), 2210, gisine
  send (aout + atop) * p5 * .5, (aout + atop) * p5 * .5, p6, p7
endin
