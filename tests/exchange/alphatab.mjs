// SPDX-License-Identifier: GPL-3.0-or-later
// Prints what alphaTab understands of scores, as JSON. Usage: node alphatab.mjs LIBRARY FILE...
import fs from 'fs';
import { pathToFileURL } from 'url';

const TICKS = 240; // of a sixteenth

const [library, ...files] = process.argv.slice(2);
const alphaTab = await import(pathToFileURL(library));

function read(file) {
  const bytes = new Uint8Array(fs.readFileSync(file));
  const score = alphaTab.importer.ScoreLoader.loadScoreFromBytes(bytes);
  const staff = score.tracks[0].staves[0];
  const music = { title: score.title, tempo: score.tempo, tuning: [...staff.tuning].reverse(),
                  capo: staff.capo, bars: [], starts: [], tempos: [], notes: [], names: [] };
  const sounding = new Map();
  let tempo = score.tempo;
  for (const bar of staff.bars) {
    const master = bar.masterBar;
    const meter = [master.timeSignatureNumerator, master.timeSignatureDenominator];
    const start = master.start / TICKS;
    let length = 0; // in ticks
    tempo = master.tempoAutomations[0]?.value ?? tempo;
    music.starts.push(start);
    music.tempos.push(tempo);
    for (const beat of bar.voices.flatMap(voice => voice.beats)) {
      const duration = beat.displayDuration / TICKS;
      if (beat.voice.index === 0) length += beat.displayDuration;
      const at = start + beat.displayStart / TICKS;
      if (beat.chord) music.names.push([at, beat.chord.name]);
      for (const note of beat.notes) {
        if (note.isTieDestination) {
          sounding.get(note.string)[1] += duration;
        } else {
          const made = [at, duration, note.string - 1, note.fret, note.realValue];
          sounding.set(note.string, made);
          music.notes.push(made);
        }
      }
    }
    music.bars.push(meter);
    if (length !== (master.isAnacrusis ? length : TICKS * 16 * meter[0] / meter[1]))
      music.wrong = `bar ${music.bars.length}: ${length / TICKS}`;
  }
  return music;
}

console.log(JSON.stringify(files.map(read)));
