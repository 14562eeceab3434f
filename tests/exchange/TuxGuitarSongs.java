// SPDX-License-Identifier: GPL-3.0-or-later
// Prints what TuxGuitar understands of tablatures, as JSON: a list with what alphatab.mjs prints of
// each. Usage: java -cp LIBRARIES TuxGuitarSongs.java FILE...
import java.io.FileInputStream;
import java.io.InputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Comparator;
import java.util.Iterator;
import java.util.List;

import org.herac.tuxguitar.io.base.TGSongReader;
import org.herac.tuxguitar.io.base.TGSongReaderHandle;
import org.herac.tuxguitar.io.base.TGSongStreamContext;
import org.herac.tuxguitar.io.gpx.v7.GPXInputStream;
import org.herac.tuxguitar.io.gtp.GP5InputStream;
import org.herac.tuxguitar.io.gtp.GTPSettings;
import org.herac.tuxguitar.song.factory.TGFactory;
import org.herac.tuxguitar.song.models.TGBeat;
import org.herac.tuxguitar.song.models.TGDuration;
import org.herac.tuxguitar.song.models.TGMeasure;
import org.herac.tuxguitar.song.models.TGNote;
import org.herac.tuxguitar.song.models.TGSong;
import org.herac.tuxguitar.song.models.TGString;
import org.herac.tuxguitar.song.models.TGTimeSignature;
import org.herac.tuxguitar.song.models.TGTrack;
import org.herac.tuxguitar.song.models.TGVoice;

class TuxGuitarSongs {
  /** A note from where it is struck, in sixteenths from the first bar on. */
  private static class Sounding {
    double start;
    double duration;
    int string;
    int fret;
    int pitch;

    public String toString() {
      return Arrays.asList(start, duration, string, fret, pitch).toString();
    }
  }

  private final TGTrack track;
  private final List<Sounding> notes = new ArrayList<>();
  private final List<String> bars = new ArrayList<>();
  private final List<String> names = new ArrayList<>();
  private final List<Double> starts = new ArrayList<>();
  private final List<Integer> tempos = new ArrayList<>();
  private String wrong;

  private TuxGuitarSongs(TGSong song) {
    track = song.getTrack(0);
    for (Iterator<TGMeasure> measures = track.getMeasures(); measures.hasNext();)
      read(measures.next());
  }

  private static double sixteenths(double time) {
    return time * 4 / TGDuration.QUARTER_TIME;
  }

  private static double at(long start) {
    return sixteenths(start - TGDuration.QUARTER_TIME);
  }

  private void read(TGMeasure measure) {
    TGTimeSignature time = measure.getTimeSignature();
    bars.add("[" + time.getNumerator() + "," + time.getDenominator().getValue() + "]");
    starts.add(at(measure.getStart()));
    tempos.add(measure.getTempo().getValue());
    List<TGBeat> beats = new ArrayList<>(measure.getBeats());
    beats.sort(Comparator.comparingLong(TGBeat::getStart));
    long end = measure.getStart();
    for (TGBeat beat : beats) {
      if (beat.isChordBeat())
        names.add("[" + at(beat.getStart()) + "," + quoted(beat.getChord().getName()) + "]");
      for (int voice = 0; voice < beat.countVoices(); ++voice)
        if (!beat.getVoice(voice).isEmpty()) read(beat.getVoice(voice), at(beat.getStart()));
      if (!beat.getVoice(0).isEmpty())
        end = Math.max(end, beat.getStart() + beat.getVoice(0).getDuration().getTime());
    }
    if (end != measure.getStart() + measure.getLength())
      wrong = "bar " + bars.size() + ": " + sixteenths(end - measure.getStart());
  }

  private void read(TGVoice voice, double start) {
    double duration = sixteenths(voice.getDuration().getTime());
    for (TGNote note : voice.getNotes()) {
      int string = track.stringCount() - note.getString();
      if (note.isTiedNote()) {
        Sounding last = null;
        for (Sounding each : notes)
          if (each.string == string) last = each;
        last.duration += duration;
        continue;
      }
      Sounding struck = new Sounding();
      struck.start = start;
      struck.duration = duration;
      struck.string = string;
      struck.fret = note.getValue();
      struck.pitch = track.getString(note.getString()).getValue() + track.getOffset() + note.getValue();
      notes.add(struck);
    }
  }

  private static String quoted(String text) {
    StringBuilder json = new StringBuilder("\"");
    for (char c : text.toCharArray())
      if (c < ' ')
        json.append(String.format("\\u%04x", (int) c));
      else
        json.append(c == '"' || c == '\\' ? "\\" : "").append(c);
    return json.append('"').toString();
  }

  private static TGSong load(String file) throws Exception {
    boolean isNew = file.endsWith(".gp");
    TGSongReader reader = isNew ? new GPXInputStream() : new GP5InputStream(new GTPSettings());
    TGSongReaderHandle handle = new TGSongReaderHandle();
    handle.setFactory(new TGFactory());
    handle.setContext(new TGSongStreamContext());
    try (InputStream input = new FileInputStream(file)) {
      handle.setInputStream(input);
      reader.read(handle);
    }
    return handle.getSong();
  }

  public static void main(String[] files) throws Exception {
    PrintStream out = new PrintStream(System.out, false, StandardCharsets.UTF_8);
    String separator = "[";
    for (String file : files) {
      TGSong song = load(file);
      TuxGuitarSongs read = new TuxGuitarSongs(song);
      List<Integer> tuning = new ArrayList<>();
      for (TGString string : read.track.getStrings()) tuning.add(0, string.getValue());
      out.print(separator + "{\"title\":" + quoted(song.getName()) + ",\"tempo\":" +
                song.getMeasureHeader(0).getTempo().getValue() + ",\"tuning\":" + tuning +
                ",\"capo\":" + read.track.getOffset() +
                ",\"bars\":" + read.bars + ",\"starts\":" + read.starts +
                ",\"tempos\":" + read.tempos + ",\"notes\":" + read.notes +
                ",\"names\":" + read.names +
                (read.wrong == null ? "" : ",\"wrong\":" + quoted(read.wrong)) + "}\n");
      separator = ",";
    }
    out.print("]\n");
    out.flush();
  }
}
