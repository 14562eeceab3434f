<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Detection</name>
    <message>
        <source>Precise: note by note</source>
        <translation>Genau: Ton für Ton</translation>
    </message>
    <message>
        <source>Your settings have the precise one: imports will be heard as before.</source>
        <translation>Eingestellt ist die genaue: Importe werden gehört wie bisher.</translation>
    </message>
    <message>
        <source>Classic: block by block</source>
        <translation>Klassisch: Block für Block</translation>
    </message>
    <message>
        <source>Your settings have the classic one: imports will be heard with it.</source>
        <translation>Eingestellt ist die klassische: Importe werden damit gehört.</translation>
    </message>
</context>
<context>
    <name>Doubt</name>
    <message>
        <source>%1 string (%2)</source>
        <translation>%1-Saite (%2)</translation>
    </message>
    <message>
        <source>%1 string</source>
        <translation>%1-Saite</translation>
    </message>
    <message>
        <source>%1 open</source>
        <translation>%1 leer</translation>
    </message>
    <message>
        <source>%1, fret %2</source>
        <translation>%1, Bund %2</translation>
    </message>
    <message>
        <source>perhaps %1 is missing</source>
        <translation>vielleicht fehlt %1</translation>
    </message>
    <message>
        <source>%1: perhaps an overtone of %2</source>
        <translation>%1: vielleicht ein Oberton von %2</translation>
    </message>
    <message>
        <source>%1: perhaps %2</source>
        <translation>%1: vielleicht %2</translation>
    </message>
    <message>
        <source>%1: perhaps it only rings on</source>
        <translation>%1: klingt vielleicht nur weiter</translation>
    </message>
    <message>
        <source>%1: perhaps no note</source>
        <translation>%1: vielleicht kein Ton</translation>
    </message>
    <message>
        <source>perhaps not all notes of this chord are right</source>
        <translation>vielleicht stimmen nicht alle Töne dieses Akkords</translation>
    </message>
</context>
<context>
    <name>Duration</name>
    <message>
        <source>Sixteenth</source>
        <translation>Sechzehntel</translation>
    </message>
    <message>
        <source>Eighth</source>
        <translation>Achtel</translation>
    </message>
    <message>
        <source>Dotted Eighth</source>
        <translation>Punktierte Achtel</translation>
    </message>
    <message>
        <source>Quarter</source>
        <translation>Viertel</translation>
    </message>
    <message>
        <source>Dotted Quarter</source>
        <translation>Punktierte Viertel</translation>
    </message>
    <message>
        <source>Half</source>
        <translation>Halbe</translation>
    </message>
    <message>
        <source>Dotted Half</source>
        <translation>Punktierte Halbe</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Ganze</translation>
    </message>
</context>
<context>
    <name>Exchange</name>
    <message>
        <source>%1: is larger than %2 MiB; save it with fewer tracks in the program that it is from, and import that</source>
        <translation>%1: ist größer als %2 MiB; speichere sie in dem Programm, aus dem sie stammt, mit weniger Spuren und importiere das</translation>
    </message>
    <message>
        <source>%1: is of no format that can be read; save it as MIDI or MusicXML in the program that it is from, and import that</source>
        <translation>%1: hat kein Format, das gelesen werden kann; speichere sie in dem Programm, aus dem sie stammt, als MIDI oder MusicXML und importiere das</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>its repeats make more than %1 bars; nothing was read</source>
        <translation>ihre Wiederholungen ergeben mehr als %1 Takte; nichts wurde gelesen</translation>
    </message>
    <message>
        <source>line %1 declares an entity, which is not read for safety&apos;s sake</source>
        <translation>Zeile %1 vereinbart eine Entität; das wird der Sicherheit halber nicht gelesen</translation>
    </message>
    <message>
        <source>its XML is broken in line %1: %2</source>
        <translation>ihr XML ist in Zeile %1 fehlerhaft: %2</translation>
    </message>
    <message>
        <source>it is empty</source>
        <translation>sie ist leer</translation>
    </message>
    <message>
        <source>it has more than %1 MB of XML</source>
        <translation>sie hat mehr als %1 MB XML</translation>
    </message>
    <message>
        <source>the file ends too early</source>
        <translation>die Datei endet zu früh</translation>
    </message>
    <message>
        <source>the file is damaged: byte %1 makes no sense</source>
        <translation>die Datei ist beschädigt: Byte %1 ergibt keinen Sinn</translation>
    </message>
    <message>
        <source>it is of a version of Guitar Pro that is not read: %1</source>
        <translation>sie ist von einer Version von Guitar Pro, die nicht gelesen wird: %1</translation>
    </message>
    <message>
        <source>it is larger than any music; nothing was read</source>
        <translation>sie ist größer als jede Musik; nichts wurde gelesen</translation>
    </message>
    <message>
        <source>it is no file of Guitar Pro</source>
        <translation>es ist keine Datei von Guitar Pro</translation>
    </message>
    <message>
        <source>it has more notes than any music; nothing was read</source>
        <translation>sie hat mehr Noten als jede Musik; nichts wurde gelesen</translation>
    </message>
    <message>
        <source>its tracks are pieces of their own, which is not read; save it in another format of MIDI</source>
        <translation>ihre Spuren sind Stücke für sich, was nicht gelesen wird; speichere sie in einem anderen MIDI-Format</translation>
    </message>
    <message>
        <source>it does not say how long a beat is</source>
        <translation>sie sagt nicht, wie lang ein Schlag ist</translation>
    </message>
    <message>
        <source>it is no MIDI file</source>
        <translation>sie ist keine MIDI-Datei</translation>
    </message>
    <message>
        <source>it has more than %1 bars</source>
        <translation>sie hat mehr als %1 Takte</translation>
    </message>
    <message>
        <source>it makes more than %1 notes; nothing was read</source>
        <translation>sie ergibt mehr als %1 Töne; es wurde nichts gelesen</translation>
    </message>
    <message>
        <source>one of its tracks is longer than any music</source>
        <translation>eine ihrer Spuren ist länger als jede Musik</translation>
    </message>
    <message>
        <source>one of its tracks is broken</source>
        <translation>eine ihrer Spuren ist beschädigt</translation>
    </message>
    <message>
        <source>it is no MusicXML score</source>
        <translation>sie ist keine MusicXML-Partitur</translation>
    </message>
    <message>
        <source>it has more than %1 parts</source>
        <translation>sie hat mehr als %1 Stimmen</translation>
    </message>
    <message>
        <source>its divisions in line %1 cannot be read</source>
        <translation>ihre Unterteilung der Viertel in Zeile %1 ist nicht zu lesen</translation>
    </message>
    <message>
        <source>its duration in line %1 cannot be read</source>
        <translation>ihre Dauer in Zeile %1 ist nicht zu lesen</translation>
    </message>
    <message>
        <source>one of its bars is longer than any music</source>
        <translation>einer ihrer Takte ist länger als jede Musik</translation>
    </message>
    <message>
        <source>its time signature in line %1 cannot be read</source>
        <translation>ihre Taktart in Zeile %1 ist nicht zu lesen</translation>
    </message>
    <message>
        <source>has more than %1 bars; import a part of it</source>
        <translation>hat mehr als %1 Takte; importiere einen Teil davon</translation>
    </message>
    <message>
        <source>track %1 is for %2 strings, and songs are for six; choose another one, or have it fitted to six strings</source>
        <translation>Spur %1 ist für %2 Saiten, Songs sind für sechs; wähle eine andere, oder lass sie für sechs Saiten setzen</translation>
    </message>
    <message>
        <source>%1: has no notes that a guitar could play</source>
        <translation>%1: hat keine Noten, die eine Gitarre spielen könnte</translation>
    </message>
    <message>
        <source>has no track &quot;%1&quot;; it has %2</source>
        <translation>hat keine Spur „%1“, sondern %2</translation>
    </message>
    <message>
        <source>track %1 is played by drums; choose another one</source>
        <translation>Spur %1 ist Schlagzeug; wähle eine andere</translation>
    </message>
    <message>
        <source>track %1 has no notes; choose another one</source>
        <translation>Spur %1 hat keine Noten; wähle eine andere</translation>
    </message>
    <message>
        <source>has no notes that a guitar could play</source>
        <translation>hat keine Noten, die eine Gitarre spielen könnte</translation>
    </message>
    <message>
        <source>%1: drums</source>
        <translation>%1: Schlagzeug</translation>
    </message>
    <message>
        <source>%1: %2 strings, %3 notes</source>
        <translation>%1: %2 Saiten, %3 Noten</translation>
    </message>
    <message>
        <source>%1: %2 notes</source>
        <translation>%1: %2 Noten</translation>
    </message>
    <message>
        <source>it has no tracks</source>
        <translation>sie hat keine Spuren</translation>
    </message>
    <message>
        <source>it has more tracks than any music</source>
        <translation>sie hat mehr Spuren als jede Musik</translation>
    </message>
    <message>
        <source>it has no bars</source>
        <translation>sie hat keine Takte</translation>
    </message>
    <message>
        <source>it is damaged: line %1 makes no sense</source>
        <translation>sie ist beschädigt: Zeile %1 ergibt keinen Sinn</translation>
    </message>
    <message>
        <source>it is damaged: a note has no length</source>
        <translation>sie ist beschädigt: eine Note hat keine Länge</translation>
    </message>
    <message>
        <source>its container is damaged</source>
        <translation>ihr Behälter ist beschädigt</translation>
    </message>
    <message>
        <source>its container holds no music</source>
        <translation>ihr Behälter enthält keine Musik</translation>
    </message>
    <message>
        <source>there is no score in its archive</source>
        <translation>in ihrem Archiv ist keine Partitur</translation>
    </message>
    <message>
        <source>there is no tablature of six strings in it; nothing was read</source>
        <translation>darin ist keine Tabulatur für sechs Saiten; es wurde nichts gelesen</translation>
    </message>
    <message>
        <source>its tablature has %1 strings; only that of guitars with six is read</source>
        <translation>die Tabulatur hat %1 Saiten; gelesen wird nur die von Gitarren mit sechs</translation>
    </message>
    <message>
        <source>it is larger than any tablature; nothing was read</source>
        <translation>sie ist größer als jede Tabulatur; nichts wurde gelesen</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>it is no zip archive, or a damaged one</source>
        <translation>es ist kein Zip-Archiv oder ein beschädigtes</translation>
    </message>
    <message>
        <source>its archive holds more than it may</source>
        <translation>ihr Archiv enthält mehr, als es darf</translation>
    </message>
    <message>
        <source>its archive is encrypted</source>
        <translation>ihr Archiv ist verschlüsselt</translation>
    </message>
    <message>
        <source>its archive is packed in a way that is not read</source>
        <translation>ihr Archiv ist auf eine Art gepackt, die nicht gelesen wird</translation>
    </message>
</context>
<context>
    <name>Job</name>
    <message>
        <source>Album Export</source>
        <translation>Album-Export</translation>
    </message>
    <message>
        <source>WAV Export</source>
        <translation>WAV-Export</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Einmessen</translation>
    </message>
    <message>
        <source>Song Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Song Export</source>
        <translation>Song-Export</translation>
    </message>
    <message>
        <source>Copy of a Recording</source>
        <translation>Kopie einer Aufnahme</translation>
    </message>
</context>
<context>
    <name>LeftOut</name>
    <message>
        <source>basses of chords</source>
        <translation>Basstöne von Akkorden</translation>
    </message>
    <message>
        <source>names of chords that the chord book does not have</source>
        <translation>Akkordnamen, die das Akkordbuch nicht hat</translation>
    </message>
    <message>
        <source>notes moved by octaves</source>
        <translation>um Oktaven versetzte Noten</translation>
    </message>
    <message>
        <source>notes moved to the nearest twelfth of a beat</source>
        <translation>auf das nächste Zwölftel eines Schlags gerückte Noten</translation>
    </message>
    <message>
        <source>notes on a string that sounds another one</source>
        <translation>Noten auf einer Saite, auf der schon eine klingt</translation>
    </message>
    <message>
        <source>notes that no hand could play with the others</source>
        <translation>Noten, die keine Hand mit den anderen spielen könnte</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>arpeggios</source>
        <translation>Arpeggien</translation>
    </message>
    <message>
        <source>bends</source>
        <translation>gezogene Töne</translation>
    </message>
    <message>
        <source>changes of key</source>
        <translation>Tonartwechsel</translation>
    </message>
    <message>
        <source>changes of sound</source>
        <translation>Klangwechsel</translation>
    </message>
    <message>
        <source>changes of swing</source>
        <translation>Wechsel des Swings</translation>
    </message>
    <message>
        <source>chord names</source>
        <translation>Akkordnamen</translation>
    </message>
    <message>
        <source>cue notes</source>
        <translation>Stichnoten</translation>
    </message>
    <message>
        <source>dead notes</source>
        <translation>abgedämpfte Noten</translation>
    </message>
    <message>
        <source>directions</source>
        <translation>Anweisungen</translation>
    </message>
    <message>
        <source>fades</source>
        <translation>Einblendungen</translation>
    </message>
    <message>
        <source>grace notes</source>
        <translation>Vorschläge</translation>
    </message>
    <message>
        <source>hammer-ons and pull-offs</source>
        <translation>Hammer-ons und Pull-offs</translation>
    </message>
    <message>
        <source>harmonics</source>
        <translation>Flageoletts</translation>
    </message>
    <message>
        <source>let ring</source>
        <translation>Klingenlassen</translation>
    </message>
    <message>
        <source>lyrics</source>
        <translation>Liedtexte</translation>
    </message>
    <message>
        <source>markers</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>notes beyond their bars</source>
        <translation>Noten jenseits ihrer Takte</translation>
    </message>
    <message>
        <source>notes out of range</source>
        <translation>Noten außerhalb des Tonumfangs</translation>
    </message>
    <message>
        <source>notes without strings</source>
        <translation>Noten ohne Saite</translation>
    </message>
    <message>
        <source>ornaments</source>
        <translation>Verzierungen</translation>
    </message>
    <message>
        <source>palm mutes</source>
        <translation>Palm Mutes</translation>
    </message>
    <message>
        <source>palm muting</source>
        <translation>Palm Muting</translation>
    </message>
    <message>
        <source>pedals</source>
        <translation>Pedale</translation>
    </message>
    <message>
        <source>places on the neck</source>
        <translation>Stellen auf dem Griffbrett</translation>
    </message>
    <message>
        <source>slides</source>
        <translation>Slides</translation>
    </message>
    <message>
        <source>staccatos</source>
        <translation>Staccati</translation>
    </message>
    <message>
        <source>strokes</source>
        <translation>Anschläge</translation>
    </message>
    <message>
        <source>tapped notes</source>
        <translation>getappte Noten</translation>
    </message>
    <message>
        <source>taps, slaps and pops</source>
        <translation>Tapping, Slaps und Pops</translation>
    </message>
    <message>
        <source>texts</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>ties to nothing</source>
        <translation>Bögen ins Leere</translation>
    </message>
    <message>
        <source>tracks that break off</source>
        <translation>Spuren, die abbrechen</translation>
    </message>
    <message>
        <source>tremolo bars</source>
        <translation>Tremolohebel</translation>
    </message>
    <message>
        <source>tremolo picking</source>
        <translation>Tremolo-Anschläge</translation>
    </message>
    <message>
        <source>trills</source>
        <translation>Triller</translation>
    </message>
    <message>
        <source>vibrato</source>
        <translation>Vibrato</translation>
    </message>
    <message>
        <source>vibratos</source>
        <translation>Vibratos</translation>
    </message>
    <message>
        <source>taps</source>
        <translation>Taps</translation>
    </message>
    <message>
        <source>systems of %1 strings</source>
        <translation>Systeme mit %1 Saiten</translation>
    </message>
</context>
<context>
    <name>Log</name>
    <message>
        <source>no asset tracks found</source>
        <translation>Keine Tonspuren gefunden</translation>
    </message>
    <message>
        <source>could not start reading asset</source>
        <translation>Das Lesen der Datei ließ sich nicht beginnen</translation>
    </message>
    <message>
        <source>could not create asset reader</source>
        <translation>Die Datei ließ sich nicht zum Lesen öffnen</translation>
    </message>
    <message>
        <source>%1: %2 songs exported.</source>
        <translation>%1: %2 Songs exportiert.</translation>
    </message>
    <message>
        <source>%1: cancelled, nothing was written.</source>
        <translation>%1: abgebrochen, nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>Calibration: %1 notes were heard.</source>
        <translation>Einmessen: %1 Töne gehört.</translation>
    </message>
    <message>
        <source>Calibration cancelled.</source>
        <translation>Einmessen abgebrochen.</translation>
    </message>
    <message>
        <source>(1/3) importing file .....</source>
        <translation>(1/3) Datei wird importiert .....</translation>
    </message>
    <message>
        <source>(2/3) scanning chords .....</source>
        <translation>(2/3) Akkorde werden gesucht .....</translation>
    </message>
    <message>
        <source>.. scanning chords.</source>
        <translation>.. Akkorde werden gesucht.</translation>
    </message>
    <message>
        <source>Import paused, its song was deleted; undo that to go on.</source>
        <translation>Der Import ruht, denn sein Song wurde gelöscht; mach das rückgängig, damit er weitergeht.</translation>
    </message>
    <message>
        <source>Import goes on.</source>
        <translation>Der Import geht weiter.</translation>
    </message>
    <message>
        <source>Song successfully imported.</source>
        <translation>Song erfolgreich importiert.</translation>
    </message>
    <message>
        <source>(3/3) building tabulature .....</source>
        <translation>(3/3) Tabulatur wird gezeichnet .....</translation>
    </message>
    <message>
        <source>Import cancelled, nothing was kept.</source>
        <translation>Import abgebrochen, nichts wurde behalten.</translation>
    </message>
    <message>
        <source>Song taken as whole.</source>
        <translation>Song als vollständig genommen.</translation>
    </message>
    <message>
        <source>The file has no overtones of string %1; tones there count unconfirmed.</source>
        <translation>Die Datei hat keine Obertöne von Saite %1; Töne darauf zählen unbestätigt.</translation>
    </message>
    <message>
        <source>Album created.</source>
        <translation>Album angelegt.</translation>
    </message>
    <message>
        <source>Album renamed.</source>
        <translation>Album umbenannt.</translation>
    </message>
    <message>
        <source>Album was successfully cloned.</source>
        <translation>Album erfolgreich dupliziert.</translation>
    </message>
    <message>
        <source>Album was successfully deleted.</source>
        <translation>Album erfolgreich gelöscht.</translation>
    </message>
    <message>
        <source>Song renamed.</source>
        <translation>Song umbenannt.</translation>
    </message>
    <message>
        <source>Song moved.</source>
        <translation>Song verschoben.</translation>
    </message>
    <message>
        <source>Instrument selected.</source>
        <translation>Instrument gewählt.</translation>
    </message>
    <message>
        <source>Instrument imported.</source>
        <translation>Instrument importiert.</translation>
    </message>
    <message>
        <source>Instrument calibrated.</source>
        <translation>Instrument eingemessen.</translation>
    </message>
    <message>
        <source>Instrument renamed.</source>
        <translation>Instrument umbenannt.</translation>
    </message>
    <message>
        <source>Instrument was successfully deleted.</source>
        <translation>Instrument erfolgreich gelöscht.</translation>
    </message>
    <message>
        <source>Working directory chosen.</source>
        <translation>Arbeitsordner gewählt.</translation>
    </message>
    <message>
        <source>Song was successfully deleted.</source>
        <translation>Song erfolgreich gelöscht.</translation>
    </message>
    <message>
        <source>Applying filter chain.</source>
        <translation>Die Filter werden der Reihe nach angewandt.</translation>
    </message>
    <message>
        <source>Leading Six Voices extracted.</source>
        <translation>Führende sechs Stimmen herausgelöst.</translation>
    </message>
    <message>
        <source>Left Hand optimized.</source>
        <translation>Für die linke Hand vereinfacht.</translation>
    </message>
    <message>
        <source>Right Hand optimized.</source>
        <translation>Für die rechte Hand vereinfacht.</translation>
    </message>
    <message>
        <source>Song was successfully cloned.</source>
        <translation>Song erfolgreich dupliziert.</translation>
    </message>
    <message>
        <source>Tuning selected.</source>
        <translation>Stimmung gewählt.</translation>
    </message>
    <message>
        <source>Tuning renamed.</source>
        <translation>Stimmung umbenannt.</translation>
    </message>
    <message>
        <source>Tuning created.</source>
        <translation>Stimmung angelegt.</translation>
    </message>
    <message>
        <source>Tuning changed.</source>
        <translation>Stimmung geändert.</translation>
    </message>
    <message>
        <source>Tuning was successfully deleted.</source>
        <translation>Stimmung erfolgreich gelöscht.</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig gemacht: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederholt: %1</translation>
    </message>
    <message>
        <source>There is currently no Song selected.</source>
        <translation>Zurzeit ist kein Song ausgewählt.</translation>
    </message>
    <message>
        <source>The resource %1 is missing; install Korvel again.</source>
        <translation>Die Datei %1 des Programms fehlt; installiere Korvel neu.</translation>
    </message>
    <message>
        <source>With a capo on fret %1 it sounds as recorded.</source>
        <translation>Mit einem Kapodaster am Bund %1 klingt es wie aufgenommen.</translation>
    </message>
    <message>
        <source>Easy version made.</source>
        <translation>Leichte Fassung erstellt.</translation>
    </message>
    <message>
        <source>Song to sing along made.</source>
        <translation>Lied zum Mitsingen erstellt.</translation>
    </message>
    <message>
        <source>its rhythm is too free to be read in bars, so the song is in slices of 0.37 s; with its tempo or taps it can be laid into bars</source>
        <translation>Der Rhythmus ist zu frei, um in Takten gelesen zu werden, daher steht das Lied in Abschnitten von 0,37 s; mit seinem Tempo oder durch Mitklopfen lässt es sich in Takte legen</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>Recording found again.</source>
        <translation>Aufnahme wiedergefunden.</translation>
    </message>
    <message>
        <source>%1: notes that come: %2, that go: %3.</source>
        <translation>%1: Töne, die dazukommen: %2, die wegfallen: %3.</translation>
    </message>
    <message>
        <source>it sounds like a band: its chords were heard</source>
        <translation>es klingt nach einer Band: ihre Akkorde wurden gehört</translation>
    </message>
    <message>
        <source>it sounds like one guitar: its notes were heard</source>
        <translation>es klingt nach einer einzelnen Gitarre: ihre Töne wurden gehört</translation>
    </message>
    <message>
        <source>Lyrics changed.</source>
        <translation>Liedtext geändert.</translation>
    </message>
    <message>
        <source>its rhythm is too free to be read in bars; it is taken as written</source>
        <translation>ihr Rhythmus ist zu frei, um in Takten gelesen zu werden; sie wird genommen, wie sie geschrieben ist</translation>
    </message>
    <message>
        <source>its rhythm was read from how it was played, not as it is written</source>
        <translation>ihr Rhythmus wurde daraus gelesen, wie sie gespielt wurde, nicht, wie sie geschrieben ist</translation>
    </message>
    <message>
        <source>track %1 is imported; there are also %2</source>
        <translation>Spur %1 wird importiert; es gibt außerdem %2</translation>
    </message>
    <message>
        <source>not kept as it was: %1</source>
        <translation>nicht behalten, wie es war: %1</translation>
    </message>
    <message>
        <source>Not in the chord book, and made plainer or left out: %1.</source>
        <translation>Nicht im Akkordbuch und daher vereinfacht oder weggelassen: %1.</translation>
    </message>
    <message>
        <source>Song strummed.</source>
        <translation>Song in ein Schlagmuster gebracht.</translation>
    </message>
    <message>
        <source>%1: a copy of the recording is kept.</source>
        <translation>%1: Eine Kopie der Aufnahme wird behalten.</translation>
    </message>
    <message>
        <source>%1: cancelled, no copy of the recording is kept.</source>
        <translation>%1: abgebrochen, es wird keine Kopie der Aufnahme behalten.</translation>
    </message>
    <message>
        <source>Recordings found again: %1.</source>
        <translation>Aufnahmen wiedergefunden: %1.</translation>
    </message>
    <message>
        <source>%1 is held as %2 now.</source>
        <translation>%1 wird jetzt als %2 gegriffen.</translation>
    </message>
    <message>
        <source>it was played in %1, and is heard so</source>
        <translation>es ist in %1 gespielt und wird so gehört</translation>
    </message>
    <message>
        <source>it seems to be played in %1</source>
        <translation>es scheint in %1 gespielt zu sein</translation>
    </message>
    <message>
        <source>the melody is not clear enough to be heard</source>
        <translation>die Melodie ist nicht deutlich genug, um gehört zu werden</translation>
    </message>
    <message>
        <source>the bass is not clear enough to be heard</source>
        <translation>der Bass ist nicht deutlich genug, um gehört zu werden</translation>
    </message>
    <message>
        <source>the melody was heard, and is written an octave higher</source>
        <translation>die Melodie wurde gehört und steht eine Oktave höher</translation>
    </message>
    <message>
        <source>the bass was heard, and is written an octave higher</source>
        <translation>der Bass wurde gehört und steht eine Oktave höher</translation>
    </message>
    <message>
        <source>the melody was heard</source>
        <translation>die Melodie wurde gehört</translation>
    </message>
    <message>
        <source>the bass was heard</source>
        <translation>der Bass wurde gehört</translation>
    </message>
    <message>
        <source>the melody was heard, and is written %1 octaves higher</source>
        <translation>die Melodie wurde gehört und steht %1 Oktaven höher</translation>
    </message>
    <message>
        <source>the bass was heard, and is written %1 octaves higher</source>
        <translation>der Bass wurde gehört und steht %1 Oktaven höher</translation>
    </message>
    <message>
        <source>it names no tuning; by its low notes it is in %1</source>
        <translation>sie nennt keine Stimmung; nach ihren tiefen Tönen ist sie in %1</translation>
    </message>
</context>
<context>
    <name>Message</name>
    <message>
        <source>the song does not reach to there</source>
        <translation>so weit reicht der Song nicht</translation>
    </message>
    <message>
        <source>no sound in it can be decoded</source>
        <translation>Darin lässt sich kein Ton dekodieren</translation>
    </message>
    <message>
        <source>the program&apos;s own store is missing</source>
        <translation>Die Datenbank des Programms fehlt</translation>
    </message>
    <message>
        <source>cannot read: it is a folder</source>
        <translation>lässt sich nicht lesen: Es ist ein Ordner</translation>
    </message>
    <message>
        <source>cannot read: it is not a plain file</source>
        <translation>lässt sich nicht lesen: Es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1: %2; make room or choose another place</source>
        <translation>%1: %2; schaffe Platz oder wähle einen anderen Ort</translation>
    </message>
    <message>
        <source>%1: %2; look at its permissions or choose another place</source>
        <translation>%1: %2; prüfe die Rechte daran oder wähle einen anderen Ort</translation>
    </message>
    <message>
        <source>%1: %2; choose another place</source>
        <translation>%1: %2; wähle einen anderen Ort</translation>
    </message>
    <message>
        <source>%1: %2; choose a shorter name</source>
        <translation>%1: %2; wähle einen kürzeren Namen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>cannot read</source>
        <translation>lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>cannot write</source>
        <translation>kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the user has no home folder</source>
        <translation>Der Benutzer hat keinen persönlichen Ordner</translation>
    </message>
    <message>
        <source>cannot be reached: %1; check the rights of its folders, or choose another place</source>
        <translation>ist nicht zu erreichen: %1; prüfe die Rechte seiner Ordner oder wähle einen anderen Ort</translation>
    </message>
    <message>
        <source>the folder cannot be made: %1; check the rights of the one that it is in</source>
        <translation>Der Ordner kann nicht angelegt werden: %1; prüfe die Rechte dessen, in dem er liegt</translation>
    </message>
    <message>
        <source>cannot write: it is not a plain file</source>
        <translation>kann nicht geschrieben werden: Es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>cannot write: it holds songs; choose another file</source>
        <translation>Kann nicht geschrieben werden: Die Datei enthält Songs; wähle eine andere</translation>
    </message>
    <message>
        <source>cannot make</source>
        <translation>lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>cannot write: %1</source>
        <translation>lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>cannot write: a WAV file ends at 4 GiB</source>
        <translation>lässt sich nicht weiter schreiben: Eine WAV-Datei endet bei 4 GiB</translation>
    </message>
    <message>
        <source>the file has no such track</source>
        <translation>Eine solche Spur hat die Datei nicht</translation>
    </message>
    <message>
        <source>the track is no sound that can be decoded</source>
        <translation>Die Spur enthält keinen Ton, der sich dekodieren lässt</translation>
    </message>
    <message>
        <source>cannot open: %1</source>
        <translation>lässt sich nicht öffnen: %1</translation>
    </message>
    <message>
        <source>cannot open: it is a folder</source>
        <translation>lässt sich nicht öffnen: Es ist ein Ordner</translation>
    </message>
    <message>
        <source>cannot open: it is not a plain file</source>
        <translation>lässt sich nicht öffnen: Es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>cannot open: it is empty</source>
        <translation>lässt sich nicht öffnen: Die Datei ist leer</translation>
    </message>
    <message>
        <source>cannot open: it is no sound or media file of a known format</source>
        <translation>lässt sich nicht öffnen: Es ist keine Ton- oder Mediendatei in einem bekannten Format</translation>
    </message>
    <message>
        <source>the track has more channels than can be mixed</source>
        <translation>Die Spur hat mehr Kanäle, als sich mischen lassen</translation>
    </message>
    <message>
        <source>it is no WAV file; another program has to convert it to one first</source>
        <translation>Es ist keine WAV-Datei; ein anderes Programm muss sie erst in eine umwandeln</translation>
    </message>
    <message>
        <source>cannot read: %1</source>
        <translation>lässt sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>cannot read: no sound has %1 samples a second; record or convert it anew</source>
        <translation>lässt sich nicht lesen: Kein Ton hat %1 Abtastwerte in der Sekunde; nimm ihn neu auf oder wandle ihn neu um</translation>
    </message>
    <message>
        <source>is no SoundFont; choose a file of type sf2 or sf3</source>
        <translation>Das ist kein SoundFont; wähle eine Datei der Art sf2 oder sf3</translation>
    </message>
    <message>
        <source>is a damaged SoundFont; fetch it anew or choose another one</source>
        <translation>Der SoundFont ist beschädigt; lade ihn neu oder wähle einen anderen</translation>
    </message>
    <message>
        <source>there is no such SoundFont; choose another one</source>
        <translation>Diesen SoundFont gibt es nicht; wähle einen anderen</translation>
    </message>
    <message>
        <source>the SoundFont cannot be read; check its rights</source>
        <translation>Der SoundFont kann nicht gelesen werden; prüfe seine Rechte</translation>
    </message>
    <message>
        <source>none was found to play with; install one (apt install timgm6mb-soundfont) or choose a file</source>
        <translation>Zum Abspielen war keiner zu finden; installiere einen (apt install timgm6mb-soundfont) oder wähle eine Datei</translation>
    </message>
    <message>
        <source>System default</source>
        <translation>Standardgerät</translation>
    </message>
    <message>
        <source>sound of %1 bits cannot be recorded or played; 16 bits can</source>
        <translation>Ton mit %1 Bit lässt sich nicht aufnehmen oder abspielen, aber mit 16 Bit</translation>
    </message>
    <message>
        <source>no sound server can be reached and there is no sound card; start PipeWire, PulseAudio or JACK, or plug a device in</source>
        <translation>kein Tonserver ist erreichbar, und es gibt keine Soundkarte; starte PipeWire, PulseAudio oder JACK, oder schließe ein Gerät an</translation>
    </message>
    <message>
        <source>no sound input &quot;%1&quot;; there is %2</source>
        <translation>Es gibt keine Tonaufnahme „%1“, aber %2</translation>
    </message>
    <message>
        <source>no sound output &quot;%1&quot;; there is %2</source>
        <translation>Es gibt keine Tonausgabe „%1“, aber %2</translation>
    </message>
    <message>
        <source>%1: the sound device cannot be opened; check that it is plugged in and that no other program keeps it</source>
        <translation>%1: Das Tongerät lässt sich nicht öffnen; sieh nach, ob es angeschlossen ist und kein anderes Programm es belegt</translation>
    </message>
    <message>
        <source>no sound file was chosen in the place of a device</source>
        <translation>anstelle eines Geräts wurde keine Tondatei gewählt</translation>
    </message>
    <message>
        <source>%1: there is no such device; there is &quot;%2&quot;</source>
        <translation>%1: Dieses Gerät gibt es nicht, aber „%2“</translation>
    </message>
    <message>
        <source>%1: sound of this kind is not for a WAV file</source>
        <translation>%1: Ton dieser Art passt nicht in eine WAV-Datei</translation>
    </message>
    <message>
        <source>The recording is longer than ten minutes; choose one that holds the single notes only</source>
        <translation>Die Aufnahme ist länger als zehn Minuten; wähle eine, auf der nur die einzelnen Töne sind</translation>
    </message>
    <message>
        <source>Nothing is heard in the recording; check the microphone or choose another file</source>
        <translation>In der Aufnahme ist nichts zu hören; prüfe das Mikrofon oder wähle eine andere Datei</translation>
    </message>
    <message>
        <source>No single note is heard in the recording; play one note at a time, louder, and mute it before the next one</source>
        <translation>In der Aufnahme ist kein einzelner Ton zu hören; spiele einen Ton nach dem anderen, lauter, und dämpfe ihn vor dem nächsten</translation>
    </message>
    <message>
        <source>String %1 was not heard long enough; record its notes once more, and let each ring for three seconds</source>
        <translation>Saite %1 war nicht lange genug zu hören; nimm ihre Töne noch einmal auf und lass jeden drei Sekunden klingen</translation>
    </message>
    <message>
        <source>the song was deleted while it was recorded</source>
        <translation>der Song wurde gelöscht, während er aufgenommen wurde</translation>
    </message>
    <message>
        <source>%1: there is no such file</source>
        <translation>%1: Diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>%1: is a folder; name a sound file</source>
        <translation>%1: ist ein Ordner; nenne eine Tondatei</translation>
    </message>
    <message>
        <source>%1: is not a plain file</source>
        <translation>%1: ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1: is empty</source>
        <translation>%1: ist leer</translation>
    </message>
    <message>
        <source>%1: its sound is in a coding that cannot be decoded; convert it to WAV first</source>
        <translation>%1: Der Ton ist so kodiert, dass er sich nicht dekodieren lässt; wandle ihn erst in WAV um</translation>
    </message>
    <message>
        <source>%1: has no sound track</source>
        <translation>%1: hat keine Tonspur</translation>
    </message>
    <message>
        <source>%1: no sound could be decoded; is the file complete?</source>
        <translation>%1: Es ließ sich kein Ton dekodieren; ist die Datei vollständig?</translation>
    </message>
    <message>
        <source>could not be written whole</source>
        <translation>konnte nicht vollständig geschrieben werden</translation>
    </message>
    <message>
        <source>the sound device is gone; choose another one or plug it in, and play again</source>
        <translation>Das Tongerät ist fort; wähle ein anderes oder schließe es an und spiele noch einmal ab</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no chord name: it has to begin with a note from A to G</source>
        <translation>„%1“ ist kein Akkordname: Er muss mit einem Ton von A bis G beginnen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no chord name: after the note comes nothing or one of %2</source>
        <translation>„%1“ ist kein Akkordname: Nach dem Ton kommt nichts oder eines von %2</translation>
    </message>
    <message>
        <source>the store is damaged: %1 has no free ids</source>
        <translation>Die Datenbank ist beschädigt: %1 hat keine freien Nummern</translation>
    </message>
    <message>
        <source>%1: %2; make room on the disk and try again</source>
        <translation>Die Platte ist voll; schaffe Platz darauf und versuche es noch einmal</translation>
    </message>
    <message>
        <source>%1: %2; look at the permissions of the store and its folder</source>
        <translation>%1: %2; prüfe die Rechte an ihr und ihrem Ordner</translation>
    </message>
    <message>
        <source>the store is in use by another program; close that one first</source>
        <translation>Die Datenbank wird von einem anderen Programm benutzt; schließe erst dieses</translation>
    </message>
    <message>
        <source>the store is damaged (%1); restore a backup of it by &quot;korvel-cli restore&quot;</source>
        <translation>Die Datenbank ist beschädigt (%1); spiele mit „korvel-cli restore“ eine Sicherung zurück</translation>
    </message>
    <message>
        <source>cannot open the store</source>
        <translation>Die Datenbank kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>cannot change the store</source>
        <translation>Die Datenbank kann nicht geändert werden</translation>
    </message>
    <message>
        <source>cannot write the copy</source>
        <translation>Die Kopie kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>cannot read the store</source>
        <translation>Die Datenbank kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>cannot read or write the store</source>
        <translation>Die Datenbank kann nicht gelesen oder geschrieben werden</translation>
    </message>
    <message>
        <source>not a Korvel store; move it away or choose another file</source>
        <translation>ist keine Datenbank von Korvel; verschiebe die Datei oder wähle eine andere</translation>
    </message>
    <message>
        <source>the store is damaged; restore a backup of it by &quot;korvel-cli restore&quot;</source>
        <translation>Die Datenbank ist beschädigt; spiele mit „korvel-cli restore“ eine Sicherung zurück</translation>
    </message>
    <message>
        <source>there is a file of that name already</source>
        <translation>Eine Datei dieses Namens gibt es schon</translation>
    </message>
    <message>
        <source>there is no such store</source>
        <translation>Diese Datenbank gibt es nicht</translation>
    </message>
    <message>
        <source>the store cannot be read; check its rights</source>
        <translation>Die Datenbank kann nicht gelesen werden; prüfe ihre Rechte</translation>
    </message>
    <message>
        <source>the store was written by a newer Korvel; update the program to open it</source>
        <translation>Die Datenbank stammt von einem neueren Korvel; aktualisiere das Programm, um sie zu öffnen</translation>
    </message>
    <message>
        <source>the store cannot be switched to a rollback journal; restore a backup of it by &quot;korvel-cli restore&quot;</source>
        <translation>Die Datenbank lässt sich nicht auf ein Rollback-Journal umstellen; spiele mit „korvel-cli restore“ eine Sicherung zurück</translation>
    </message>
    <message>
        <source>the store is damaged and cannot be copied; restore a backup of it by &quot;korvel-cli restore&quot;</source>
        <translation>Die Datenbank ist beschädigt und kann nicht kopiert werden; spiele mit „korvel-cli restore“ eine Sicherung zurück</translation>
    </message>
    <message>
        <source>%1: the song has no chords, so &quot;%2&quot; has nothing to do</source>
        <translation>%1: Der Song hat keine Akkorde, also hat „%2“ nichts zu tun</translation>
    </message>
    <message>
        <source>string %1 is not within %2 to %3</source>
        <translation>Saite %1 liegt nicht zwischen %2 und %3</translation>
    </message>
    <message>
        <source>%1: is still being heard; edit it when that has ended</source>
        <translation>%1: Wird noch gehört; bearbeite es, wenn das zu Ende ist</translation>
    </message>
    <message>
        <source>chord %1 is not within %2 to %3</source>
        <translation>Akkord %1 liegt nicht zwischen %2 und %3</translation>
    </message>
    <message>
        <source>fret %1 is not within %2 to %3</source>
        <translation>Bund %1 liegt nicht zwischen %2 und %3</translation>
    </message>
    <message>
        <source>duration %1 is not within %2 to %3</source>
        <translation>Dauer %1 liegt nicht zwischen %2 und %3</translation>
    </message>
    <message>
        <source>the last chord is before the first one</source>
        <translation>Der letzte Akkord steht vor dem ersten</translation>
    </message>
    <message>
        <source>%1: the song has no chords, so there is nothing to export</source>
        <translation>%1: Der Song hat keine Akkorde, also gibt es nichts zu exportieren</translation>
    </message>
    <message>
        <source>%1: nothing sounds in these chords, so there is nothing to export</source>
        <translation>%1: In diesen Akkorden klingt nichts, also gibt es nichts zu exportieren</translation>
    </message>
    <message>
        <source>%1: an instrument is calibrated in Standard or Drop D; select one of them, and tune the guitar to it</source>
        <translation>%1: Ein Instrument wird in Standard oder Drop D eingemessen; wähle eine davon aus und stimme die Gitarre so</translation>
    </message>
    <message>
        <source>An album needs a name; type one</source>
        <translation>Ein Album braucht einen Namen; gib einen ein</translation>
    </message>
    <message>
        <source>An instrument needs a name; type one</source>
        <translation>Ein Instrument braucht einen Namen; gib einen ein</translation>
    </message>
    <message>
        <source>%1: there is an album of that name already; choose another name</source>
        <translation>%1: Ein Album dieses Namens gibt es schon; wähle einen anderen Namen</translation>
    </message>
    <message>
        <source>A song needs a name; type one</source>
        <translation>Ein Song braucht einen Titel; gib einen ein</translation>
    </message>
    <message>
        <source>%1: the album has a song of that title already; choose another title</source>
        <translation>%1: Das Album hat schon einen Song dieses Titels; wähle einen anderen Titel</translation>
    </message>
    <message>
        <source>%1: is no instrument definition file; nothing was imported</source>
        <translation>%1: ist keine Instrument-Definition; nichts wurde importiert</translation>
    </message>
    <message>
        <source>%1: there is an instrument of that name already; choose another name</source>
        <translation>%1: Es gibt schon ein Instrument dieses Namens; wähle einen anderen</translation>
    </message>
    <message>
        <source>%1: a definition file cannot hold that name; rename the instrument without apostrophes and &quot;&lt;&quot;</source>
        <translation>%1: Eine Definitionsdatei kann diesen Namen nicht aufnehmen; benenne das Instrument ohne Apostroph und „&lt;“ um</translation>
    </message>
    <message>
        <source>%1: is the only instrument; import another one first</source>
        <translation>%1: ist das einzige Instrument; importiere zuerst ein anderes</translation>
    </message>
    <message>
        <source>A tuning needs a name; type one</source>
        <translation>Eine Stimmung braucht einen Namen; gib einen ein</translation>
    </message>
    <message>
        <source>%1: there is a tuning of that name already; choose another name</source>
        <translation>%1: Eine Stimmung dieses Namens gibt es schon; wähle einen anderen Namen</translation>
    </message>
    <message>
        <source>String %1 cannot be tuned that far; choose a nearer note</source>
        <translation>Saite %1 lässt sich nicht so weit stimmen; wähle einen näheren Ton</translation>
    </message>
    <message>
        <source>String %1 must be higher than the string below it; choose another note</source>
        <translation>Saite %1 muss höher klingen als die nächsttiefere; wähle einen anderen Ton</translation>
    </message>
    <message>
        <source>%1: songs or instruments are written in it; make a new tuning and edit that</source>
        <translation>%1: In ihr sind Songs oder Instrumente notiert; lege eine neue Stimmung an und ändere diese</translation>
    </message>
    <message>
        <source>%1: the store is damaged (%2); restore a backup of it by &quot;korvel-cli restore&quot;</source>
        <translation>%1: Die Datenbank ist beschädigt (%2); spiele mit „korvel-cli restore“ eine Sicherung zurück</translation>
    </message>
    <message>
        <source>%1 is sound</source>
        <translation>%1 ist unbeschädigt</translation>
    </message>
    <message>
        <source>the demo recording is missing; install Korvel again</source>
        <translation>die Beispielaufnahme fehlt; installiere Korvel neu</translation>
    </message>
    <message>
        <source>%1 cannot be decoded; install FFmpeg&apos;s libraries with Vorbis</source>
        <translation>%1 lässt sich nicht dekodieren; installiere FFmpegs Bibliotheken mit Vorbis</translation>
    </message>
    <message>
        <source>the demo recording is read</source>
        <translation>die Beispielaufnahme lässt sich lesen</translation>
    </message>
    <message>
        <source>a tone of 110 Hz is not found; install FFTW&apos;s libraries again</source>
        <translation>ein Ton von 110 Hz wird nicht gefunden; installiere die Bibliotheken von FFTW neu</translation>
    </message>
    <message>
        <source>a tone of 110 Hz is found</source>
        <translation>ein Ton von 110 Hz wird gefunden</translation>
    </message>
    <message>
        <source>%1: its guitar does not sound as it should; choose another SoundFont</source>
        <translation>%1: Die Gitarre darin klingt nicht, wie sie soll; wähle einen anderen SoundFont</translation>
    </message>
    <message>
        <source>the open low E string is played with %1</source>
        <translation>die leere tiefe E-Saite klingt mit %1</translation>
    </message>
    <message>
        <source>%1 to play on, %2 to record from</source>
        <translation>%1 zum Abspielen, %2 zum Aufnehmen</translation>
    </message>
    <message>
        <source>%1: is being recorded; stop the recording, then delete it</source>
        <translation>%1: Wird gerade aufgenommen; stoppe die Aufnahme, dann lösche den Song</translation>
    </message>
    <message>
        <source>%1: line %2 has &quot;%3&quot; where a string, 0 to 5, belongs; nothing was imported</source>
        <translation>%1: In Zeile %2 steht „%3“, wo eine Saite, 0 bis 5, hingehört; es wurde nichts importiert</translation>
    </message>
    <message>
        <source>%1: line %2 has &quot;%3&quot; where a number belongs; nothing was imported</source>
        <translation>%1: In Zeile %2 steht „%3“, wo eine Zahl hingehört; es wurde nichts importiert</translation>
    </message>
    <message>
        <source>%1: breaks off in line %2, before &lt;%3&gt;; nothing was imported</source>
        <translation>%1: Die Datei bricht in Zeile %2 ab, vor &lt;%3&gt;; es wurde nichts importiert</translation>
    </message>
    <message>
        <source>%1: line %2 has &lt;%3&gt; where &lt;%4&gt; belongs; nothing was imported</source>
        <translation>%1: In Zeile %2 steht &lt;%3&gt;, wo &lt;%4&gt; hingehört; es wurde nichts importiert</translation>
    </message>
    <message>
        <source>%1: songs or instruments are written in it; delete those first</source>
        <translation>%1: In ihr sind Songs oder Instrumente notiert; lösche zuerst diese</translation>
    </message>
    <message>
        <source>%1: is the only tuning; add another one first</source>
        <translation>%1: ist die einzige Stimmung; füge zuerst eine andere hinzu</translation>
    </message>
    <message>
        <source>%1: %2; look whether the disk is full or fails, and try again</source>
        <translation>%1: %2; prüfe, ob die Platte voll ist oder Fehler hat, und versuche es noch einmal</translation>
    </message>
    <message>
        <source>the store is of an older Korvel and cannot be written, so it cannot be brought up to date; look at the permissions of the store and its folder</source>
        <translation>Die Datenbank stammt von einem älteren Korvel und kann nicht geschrieben werden, also auch nicht auf den neuen Stand gebracht; prüfe die Rechte an ihr und ihrem Ordner</translation>
    </message>
    <message>
        <source>%1. The import goes on, and is stored as soon as that works.</source>
        <translation>%1. Der Import geht weiter und wird gespeichert, sobald das möglich ist.</translation>
    </message>
    <message>
        <source>%1: the store cannot be written, so nothing can be changed; look at the permissions of the store and its folder</source>
        <translation>%1: Die Datenbank kann nicht geschrieben werden, also kann nichts geändert werden; prüfe die Rechte an ihr und ihrem Ordner</translation>
    </message>
    <message>
        <source>that string sounds already; move its tone first</source>
        <translation>diese Saite klingt schon; verschiebe erst ihren Ton</translation>
    </message>
    <message>
        <source>that string has no fret for this tone; try another one</source>
        <translation>diese Saite hat keinen Bund für den Ton; versuche eine andere</translation>
    </message>
    <message>
        <source>there is not enough memory left for it; close other programs</source>
        <translation>dafür reicht der Arbeitsspeicher nicht mehr; schließe andere Programme</translation>
    </message>
    <message>
        <source>not a Korvel store; move it and %1 away together, or choose another file</source>
        <translation>ist keine Datenbank von Korvel; verschiebe die Datei zusammen mit %1 oder wähle eine andere</translation>
    </message>
    <message>
        <source>%1 belongs to another store and cannot be set aside; move it away</source>
        <translation>%1 gehört zu einer anderen Datenbank und kann nicht beiseitegelegt werden; verschiebe die Datei</translation>
    </message>
    <message>
        <source>the store has triggers or views, which Korvel never makes and which may do anything to it; use another one</source>
        <translation>Die Datenbank hat Trigger oder Sichten, die Korvel nie anlegt und die alles mit ihr tun können; nimm eine andere</translation>
    </message>
    <message>
        <source>is the store itself; name a backup of it</source>
        <translation>ist die Datenbank selbst; nenne eine Sicherung von ihr</translation>
    </message>
    <message>
        <source>a change of it was not finished; open it as a store once, then restore it</source>
        <translation>Eine Änderung an ihr ist nicht zu Ende geführt; öffne sie einmal als Datenbank, dann spiele sie zurück</translation>
    </message>
    <message>
        <source>a name of %1 characters is too long; give one of at most %2</source>
        <translation>Ein Name mit %1 Zeichen ist zu lang; gib einen mit höchstens %2 ein</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; would leave nothing to play, so it made no song</source>
        <translation>%1: „%2“ ließe nichts zum Spielen übrig und hat deshalb keinen Song gemacht</translation>
    </message>
    <message>
        <source>%1: is being heard already</source>
        <translation>%1: wird schon gehört</translation>
    </message>
    <message>
        <source>the song has no chords</source>
        <translation>Der Song hat keine Akkorde</translation>
    </message>
    <message>
        <source>no instrument is selected that could confirm tones; select one</source>
        <translation>Es ist kein Instrument gewählt, das Töne bestätigen könnte; wähle eines</translation>
    </message>
    <message>
        <source>AN ERROR OCCURED IN CONTEXT: %1</source>
        <translation>FEHLER BEI: %1</translation>
    </message>
    <message>
        <source>DESCRIPTION: %1</source>
        <translation>BESCHREIBUNG: %1</translation>
    </message>
    <message>
        <source>Korvel will be closed</source>
        <translation>Korvel wird beendet</translation>
    </message>
    <message>
        <source>%1: no chord of it has a name, so there is nothing to strum; name its chords first</source>
        <translation>%1: Kein Akkord darin hat einen Namen, also gibt es nichts zu schlagen; benenne erst seine Akkorde</translation>
    </message>
    <message>
        <source>%1: no hand reaches its chord %2 in its tuning; try another key</source>
        <translation>%1: Den Akkord %2 erreicht in dieser Stimmung keine Hand; versuche eine andere Tonart</translation>
    </message>
    <message>
        <source>Model Store Initialization</source>
        <translation>Öffnen der Datenbank</translation>
    </message>
    <message>
        <source>Preparing Database</source>
        <translation>Vorbereiten der Datenbank</translation>
    </message>
    <message>
        <source>%1: what was heard in its recording cannot be read; hear the recording again</source>
        <translation>%1: Was in der Aufnahme gehört wurde, ist nicht lesbar; höre die Aufnahme noch einmal</translation>
    </message>
    <message>
        <source>%1: it is not known what was heard in a recording of it, so its rhythm cannot be read; import the recording again</source>
        <translation>%1: Es ist nicht bekannt, was in einer Aufnahme davon gehört wurde, also lässt sich kein Rhythmus lesen; importiere die Aufnahme noch einmal</translation>
    </message>
    <message>
        <source>%1: too little was heard in it to read a rhythm</source>
        <translation>%1: Es wurde zu wenig gehört, um einen Rhythmus zu lesen</translation>
    </message>
    <message>
        <source>%1: was arranged from what was heard, which a new reading would undo; change the rhythm of the song that it was made from</source>
        <translation>%1: Das ist eine Bearbeitung des Gehörten, die verloren ginge; ändere den Rhythmus des Songs, aus dem sie entstand</translation>
    </message>
    <message>
        <source>%1 beats a minute are not within %2 to %3</source>
        <translation>%1 Schläge pro Minute liegen nicht zwischen %2 und %3</translation>
    </message>
    <message>
        <source>tap along for at least %1 beats</source>
        <translation>klopfe mindestens %1 Schläge mit</translation>
    </message>
    <message>
        <source>the recording has too few beats for that</source>
        <translation>die Aufnahme hat dafür zu wenige Schläge</translation>
    </message>
    <message>
        <source>this song is not in bars with exact places; lay it into bars to move chords</source>
        <translation>dieser Song steht nicht in Takten mit genauen Plätzen; lege ihn in Takte, um Akkorde zu verschieben</translation>
    </message>
    <message>
        <source>there is no room in the bar to move this chord there</source>
        <translation>im Takt ist dort kein Platz für diesen Akkord</translation>
    </message>
    <message>
        <source>this chord is too short to be divided; make it longer first</source>
        <translation>dieser Akkord ist zu kurz, um geteilt zu werden; verlängere ihn zuerst</translation>
    </message>
    <message>
        <source>there are no beats at that time</source>
        <translation>Zu dieser Zeit gibt es keine Schläge</translation>
    </message>
    <message>
        <source>no string is free for that note there</source>
        <translation>für diesen Ton ist dort keine Saite frei</translation>
    </message>
    <message>
        <source>%1: it is not known what was heard in a recording of it; import the recording again</source>
        <translation>%1: Es ist nicht bekannt, was in einer Aufnahme davon gehört wurde; importiere die Aufnahme noch einmal</translation>
    </message>
    <message>
        <source>%1: was arranged from what was heard; correct the song that it was made from</source>
        <translation>%1: Wurde aus dem Gehörten arrangiert; korrigiere den Song, aus dem er entstand</translation>
    </message>
    <message>
        <source>there is no sound in it</source>
        <translation>es ist kein Ton darin</translation>
    </message>
    <message>
        <source>cannot be read any further</source>
        <translation>lässt sich nicht weiter lesen</translation>
    </message>
    <message>
        <source>its sound cannot be kept as FLAC: it has %1 channels at %2 Hz</source>
        <translation>ihr Ton lässt sich nicht als FLAC behalten: er hat %1 Kanäle mit %2 Hz</translation>
    </message>
    <message>
        <source>its sound changes its kind, which FLAC does not know</source>
        <translation>ihr Ton wechselt seine Art, was FLAC nicht kennt</translation>
    </message>
    <message>
        <source>%1: its chords do not follow the recording, so the guitar plays alone</source>
        <translation>%1: seine Akkorde folgen der Aufnahme nicht, darum spielt die Gitarre allein</translation>
    </message>
    <message>
        <source>%1: the recording ends before the song; from there on the guitar plays alone</source>
        <translation>%1: die Aufnahme endet vor dem Song; von da an spielt die Gitarre allein</translation>
    </message>
    <message>
        <source>%1; the guitar goes on alone</source>
        <translation>%1; die Gitarre spielt allein weiter</translation>
    </message>
    <message>
        <source>%1: is not the recording that the song was heard in</source>
        <translation>%1: ist nicht die Aufnahme, in der der Song gehört wurde</translation>
    </message>
    <message>
        <source>%1: its recording is not where it was, or was changed</source>
        <translation>%1: Die Aufnahme liegt nicht mehr da, wo sie war, oder wurde geändert</translation>
    </message>
    <message>
        <source>%1. The guitar plays alone</source>
        <translation>%1. Die Gitarre spielt allein</translation>
    </message>
    <message>
        <source>%1: no recording is stored with the song</source>
        <translation>%1: zu dem Song ist keine Aufnahme gespeichert</translation>
    </message>
    <message>
        <source>%1: the recording is not there any more; say where it is now</source>
        <translation>%1: die Aufnahme ist nicht mehr da; sag, wo sie jetzt ist</translation>
    </message>
    <message>
        <source>%1: the recording has changed since it was heard; say where the old one is</source>
        <translation>%1: die Aufnahme hat sich geändert, seit sie gehört wurde; sag, wo die alte ist</translation>
    </message>
    <message>
        <source>a hand is at a fret from 1 to %1</source>
        <translation>Eine Hand liegt an einem Bund von 1 bis %1</translation>
    </message>
    <message>
        <source>there is no other way to hold these notes</source>
        <translation>Diese Töne lassen sich nicht anders greifen</translation>
    </message>
    <message>
        <source>that string sounds already, and the others cannot make room</source>
        <translation>Diese Saite klingt schon, und die anderen können nicht ausweichen</translation>
    </message>
    <message>
        <source>these notes have no place on higher strings</source>
        <translation>Diese Töne haben auf höheren Saiten keinen Platz</translation>
    </message>
    <message>
        <source>these notes have no place on lower strings</source>
        <translation>Diese Töne haben auf tieferen Saiten keinen Platz</translation>
    </message>
    <message>
        <source>no tone sounds on that string</source>
        <translation>Auf dieser Saite klingt kein Ton</translation>
    </message>
    <message>
        <source>%1: nothing is read in the metre that it was laid into; change the rhythm of the song that it was made from</source>
        <translation>%1: In der Taktart, in die er gelegt wurde, lässt sich nichts lesen; ändere den Rhythmus des Songs, aus dem er entstand</translation>
    </message>
    <message>
        <source>%1: there are no chords in brackets or grids in it</source>
        <translation>%1: darin stehen keine Akkorde in Klammern oder Rastern</translation>
    </message>
    <message>
        <source>%1: it is not written in beats, so no pattern of strokes fits it</source>
        <translation>%1: er ist nicht in Zählzeiten geschrieben, darum passt kein Schlagmuster zu ihm</translation>
    </message>
    <message>
        <source>%1: a band plays in its recording, of which chords were heard; change or name its chords instead</source>
        <translation>%1: In seiner Aufnahme spielt eine Band, von der Akkorde gehört wurden; ändere oder benenne stattdessen seine Akkorde</translation>
    </message>
    <message>
        <source>%1: its recording could not be read to the end; nothing was changed</source>
        <translation>%1: Die Aufnahme ließ sich nicht zu Ende lesen; nichts wurde geändert</translation>
    </message>
    <message>
        <source>%1: the recording ends before this place</source>
        <translation>%1: Die Aufnahme endet vor dieser Stelle</translation>
    </message>
    <message>
        <source>there is nowhere a grip of %1 that could be another one</source>
        <translation>nirgends wird %1 mit einem Griff gespielt, der ein anderer sein könnte</translation>
    </message>
    <message>
        <source>%1 sounds other notes than %2</source>
        <translation>%1 lässt andere Töne klingen als %2</translation>
    </message>
    <message>
        <source>cannot be started</source>
        <translation>lässt sich nicht starten</translation>
    </message>
    <message>
        <source>line %1 of the lyrics is for a bar that there is not: the last one is %2. Put the number of a bar and a colon in front of a line to say where it belongs</source>
        <translation>Zeile %1 des Liedtexts ist für einen Takt, den es nicht gibt: Der letzte ist %2. Die Nummer eines Taktes und ein Doppelpunkt vor einer Zeile sagen, wohin sie gehört</translation>
    </message>
    <message>
        <source>Too high for one picture, and so in several:</source>
        <translation>Zu hoch für ein Bild, daher in mehreren:</translation>
    </message>
    <message>
        <source>the lowest note, %1, has no place in this tuning</source>
        <translation>der tiefste Ton, %1, hat in dieser Stimmung keinen Platz</translation>
    </message>
    <message>
        <source>the lowest note, %1, lies below a capo at fret %2; fret %3 is the highest one for it</source>
        <translation>der tiefste Ton, %1, liegt unter einem Kapodaster am %2. Bund; der höchste Bund dafür ist der %3.</translation>
    </message>
    <message>
        <source>some frets lie below the capo that the song has</source>
        <translation>manche Bünde liegen unter dem Kapodaster, den der Song hat</translation>
    </message>
    <message>
        <source>with a capo at fret %1 the highest note would be at fret %2, and the neck ends at fret %3</source>
        <translation>mit einem Kapodaster am %1. Bund läge der höchste Ton am %2. Bund, und der Hals endet am %3.</translation>
    </message>
    <message>
        <source>%1: its recording is another one by now, and so the song stays as it was</source>
        <translation>%1: Seine Aufnahme ist inzwischen eine andere, und der Song bleibt deshalb, wie er war</translation>
    </message>
    <message>
        <source>%1: bars were taken out or put in at chord %2, where it differs from the recording</source>
        <translation>%1: Bei Akkord %2 wurden Takte herausgenommen oder eingefügt, dort weicht er von der Aufnahme ab</translation>
    </message>
    <message>
        <source>%1: is neither what its name says nor a sound file; fetch it again, or save it as MIDI or MusicXML in the program that it is from</source>
        <translation>%1: ist weder, was der Name sagt, noch eine Tondatei; hol sie noch einmal, oder speichere sie in dem Programm, aus dem sie ist, als MIDI oder MusicXML</translation>
    </message>
    <message>
        <source>%1: tabs and scores of this kind are not read; save it as MusicXML, MIDI or Guitar Pro in the program that it is from</source>
        <translation>%1: Tabs und Noten dieser Art werden nicht gelesen; speichere die Datei als MusicXML, MIDI oder Guitar Pro in dem Programm, aus dem sie ist</translation>
    </message>
</context>
<context>
    <name>Quit</name>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Stop and Keep</source>
        <translation>Anhalten und behalten</translation>
    </message>
    <message>
        <source>Go On Recording</source>
        <translation>Weiter aufnehmen</translation>
    </message>
    <message>
        <source>Not heard to the end yet: %1</source>
        <translation>Noch nicht zu Ende gehört: %1</translation>
    </message>
    <message>
        <source>Keep What Was Heard</source>
        <translation>Gehörtes behalten</translation>
    </message>
    <message>
        <source>Go On at the Next Start</source>
        <translation>Beim nächsten Start weiter</translation>
    </message>
    <message>
        <source>Do Not Quit</source>
        <translation>Nicht beenden</translation>
    </message>
    <message>
        <source>Keeping what was heard ...</source>
        <translation>Das Gehörte wird gesichert ...</translation>
    </message>
    <message>
        <source>A recording is going on. Stop it? What was played is kept.</source>
        <translation>Es wird gerade aufgenommen. Anhalten? Was gespielt wurde, bleibt erhalten.</translation>
    </message>
</context>
<context>
    <name>Rhythm</name>
    <message>
        <source>swing</source>
        <translation>Swing</translation>
    </message>
    <message>
        <source>triplets</source>
        <translation>Triolen</translation>
    </message>
    <message>
        <source>straight</source>
        <translation>gerade</translation>
    </message>
    <message>
        <source>%1 beats a minute, %2, %3</source>
        <translation>%1 Schläge pro Minute, %2, %3</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 im %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 minor</source>
        <translation>%1-Moll</translation>
    </message>
    <message>
        <source>%1 major</source>
        <translation>%1-Dur</translation>
    </message>
    <message>
        <source>slices of 0.37 s</source>
        <translation>Abschnitte von 0,37 s</translation>
    </message>
    <message>
        <source>%1 (probable, too)</source>
        <translation>%1 (auch wahrscheinlich)</translation>
    </message>
    <message>
        <source>no beats near %1 a minute fit its notes, so it is read at %2</source>
        <translation>zu seinen Noten passen keine Schläge nahe %1 in der Minute, daher wird es mit %2 gelesen</translation>
    </message>
</context>
<context>
    <name>SaveFilePanel</name>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
</context>
<context>
    <name>SelfCheck</name>
    <message>
        <source>Store</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>Decoding</source>
        <translation>Dekodieren</translation>
    </message>
    <message>
        <source>Transform</source>
        <translation>Transformation</translation>
    </message>
    <message>
        <source>Synthesiser</source>
        <translation>Synthesizer</translation>
    </message>
    <message>
        <source>Sound devices</source>
        <translation>Tongeräte</translation>
    </message>
</context>
<context>
    <name>SongFormat</name>
    <message>
        <source>Text tablature</source>
        <translation>Tabulatur als Text</translation>
    </message>
    <message>
        <source>MusicXML score</source>
        <translation>MusicXML-Noten</translation>
    </message>
    <message>
        <source>MIDI file</source>
        <translation>MIDI-Datei</translation>
    </message>
    <message>
        <source>Guitar Pro 5</source>
        <translation>Guitar Pro 5</translation>
    </message>
    <message>
        <source>Compressed MusicXML score</source>
        <translation>Komprimierte MusicXML-Partitur</translation>
    </message>
    <message>
        <source>Guitar Pro 7 and 8</source>
        <translation>Guitar Pro 7 und 8</translation>
    </message>
    <message>
        <source>alphaTex</source>
        <translation>alphaTex</translation>
    </message>
    <message>
        <source>ABC notation</source>
        <translation>ABC-Notation</translation>
    </message>
</context>
<context>
    <name>SongHint</name>
    <message>
        <source>Laid into bars of this metre, ringing tones as long notes</source>
        <translation>In Takte dieser Taktart gelegt, klingende Töne als lange Noten</translation>
    </message>
    <message>
        <source>Only so many of the loudest tones of each chord; faint ones may be mere overtones</source>
        <translation>Nur so viele der lautesten Töne jedes Akkords; leise sind vielleicht nur Obertöne</translation>
    </message>
    <message>
        <source>The whole song so much higher, with its new chord names, in grips that a hand can play</source>
        <translation>Der ganze Song um so viel höher, mit neuen Akkordnamen, in Griffen, die eine Hand spielen kann</translation>
    </message>
    <message>
        <source>The whole song so much lower, with its new chord names, in grips that a hand can play</source>
        <translation>Der ganze Song um so viel tiefer, mit neuen Akkordnamen, in Griffen, die eine Hand spielen kann</translation>
    </message>
    <message>
        <source>Three songs in turn: melody, bass and what rings between them, easier for the left hand, then for the right one</source>
        <translation>Drei Songs nacheinander: Melodie, Bass und was dazwischen klingt, leichter für die linke Hand, dann für die rechte</translation>
    </message>
    <message>
        <source>The grips that come at least four times, each once: what to learn first</source>
        <translation>Die Griffe, die mindestens viermal vorkommen, jeden einmal: was du zuerst üben kannst</translation>
    </message>
    <message>
        <source>Each chord in a shape that four fingers hold with ease; tones beyond it go</source>
        <translation>Jeder Akkord in einer Form, die vier Finger leicht halten; was darüber hinausgeht, fällt weg</translation>
    </message>
    <message>
        <source>Of each chord the strings that the picking hand strikes together</source>
        <translation>Von jedem Akkord die Saiten, die die Zupfhand zusammen anschlägt</translation>
    </message>
    <message>
        <source>The same notes higher up the neck: each on the next lower string, where that is free</source>
        <translation>Dieselben Noten weiter oben am Hals: jede auf der nächsttieferen Saite, wo diese frei ist</translation>
    </message>
    <message>
        <source>Strummed chords without tones that only rang along by mistake; melodies would lose too much</source>
        <translation>Geschlagene Akkorde ohne Töne, die nur versehentlich mitklangen; Melodien verlören zu viel</translation>
    </message>
    <message>
        <source>The same notes where a hand reaches them best over the whole song</source>
        <translation>Dieselben Noten dort, wo eine Hand sie im ganzen Song am besten erreicht</translation>
    </message>
    <message>
        <source>What both hands can do: foreign tones, a bass that runs with the melody and crowded strings go; each stage is kept as a text file</source>
        <translation>Was beide Hände schaffen: fremde Töne, ein Bass, der mit der Melodie läuft, und zu volle Griffe fallen weg; jede Stufe bleibt als Textdatei</translation>
    </message>
    <message>
        <source>A line for a pick: the highest tone, and the next one where it is on the string beside it</source>
        <translation>Eine Linie fürs Plektrum: der höchste Ton und der nächste, wenn er auf der Saite daneben liegt</translation>
    </message>
    <message>
        <source>A line for a pick below the melody, from the second highest tone</source>
        <translation>Eine Linie fürs Plektrum unter der Melodie, vom zweithöchsten Ton an</translation>
    </message>
    <message>
        <source>A line for a pick in the middle, from the third highest tone</source>
        <translation>Eine Linie fürs Plektrum in der Mitte, vom dritthöchsten Ton an</translation>
    </message>
    <message>
        <source>Melody, bass and the tone between them that rings longest</source>
        <translation>Melodie, Bass und der Ton dazwischen, der am längsten klingt</translation>
    </message>
    <message>
        <source>Melody, bass and the two tones between them that ring longest</source>
        <translation>Melodie, Bass und die zwei Töne dazwischen, die am längsten klingen</translation>
    </message>
    <message>
        <source>Melody, bass and the three tones between them that ring longest</source>
        <translation>Melodie, Bass und die drei Töne dazwischen, die am längsten klingen</translation>
    </message>
    <message>
        <source>Melody, bass and the four tones between them that ring longest</source>
        <translation>Melodie, Bass und die vier Töne dazwischen, die am längsten klingen</translation>
    </message>
    <message>
        <source>The highest and the lowest tone of each chord</source>
        <translation>Der höchste und der tiefste Ton jedes Akkords</translation>
    </message>
    <message>
        <source>The highest tone of each chord: the tune alone, to sing or to learn first</source>
        <translation>Der höchste Ton jedes Akkords: nur die Melodie, zum Singen oder zum Anfangen</translation>
    </message>
    <message>
        <source>The lowest tone of each chord: a bass line</source>
        <translation>Der tiefste Ton jedes Akkords: eine Basslinie</translation>
    </message>
    <message>
        <source>The second highest tone of each chord</source>
        <translation>Der zweithöchste Ton jedes Akkords</translation>
    </message>
    <message>
        <source>The third highest tone of each chord</source>
        <translation>Der dritthöchste Ton jedes Akkords</translation>
    </message>
    <message>
        <source>The fourth highest tone of each chord</source>
        <translation>Der vierthöchste Ton jedes Akkords</translation>
    </message>
    <message>
        <source>The fifth highest tone of each chord</source>
        <translation>Der fünfthöchste Ton jedes Akkords</translation>
    </message>
    <message>
        <source>Each chord without the tones that its name does not have</source>
        <translation>Jeder Akkord ohne die Töne, die sein Name nicht enthält</translation>
    </message>
    <message>
        <source>Without sevenths and sixths: G7 becomes G</source>
        <translation>Ohne Septimen und Sexten: Aus G7 wird G</translation>
    </message>
    <message>
        <source>Without ninths: Cadd9 becomes C, and C9 becomes C7</source>
        <translation>Ohne Nonen: Aus Cadd9 wird C, aus C9 wird C7</translation>
    </message>
    <message>
        <source>Without elevenths: C11 becomes C9</source>
        <translation>Ohne Undezimen: Aus C11 wird C9</translation>
    </message>
    <message>
        <source>Plain triads: without sevenths, sixths, ninths and all above them</source>
        <translation>Einfache Dreiklänge: ohne Septimen, Sexten, Nonen und alles darüber</translation>
    </message>
    <message>
        <source>Sevenths stay, ninths and all above them go: C9 becomes C7</source>
        <translation>Septimen bleiben, Nonen und alles darüber fallen weg: Aus C9 wird C7</translation>
    </message>
    <message>
        <source>Ninths stay, elevenths and thirteenths go: C13 becomes C9</source>
        <translation>Nonen bleiben, Undezimen und Tredezimen fallen weg: Aus C13 wird C9</translation>
    </message>
    <message>
        <source>What lies between the highest and the lowest tone of each chord</source>
        <translation>Was zwischen dem höchsten und dem tiefsten Ton jedes Akkords liegt</translation>
    </message>
    <message>
        <source>Each chord without its highest tone: an accompaniment to sing to</source>
        <translation>Jeder Akkord ohne seinen höchsten Ton: eine Begleitung zum Singen</translation>
    </message>
    <message>
        <source>Each chord without its lowest tone, for playing with a bass</source>
        <translation>Jeder Akkord ohne seinen tiefsten Ton, zum Spielen mit einem Bass</translation>
    </message>
    <message>
        <source>Each chord without its second highest tone</source>
        <translation>Jeder Akkord ohne seinen zweithöchsten Ton</translation>
    </message>
    <message>
        <source>Each chord without its third highest tone</source>
        <translation>Jeder Akkord ohne seinen dritthöchsten Ton</translation>
    </message>
    <message>
        <source>Each chord without its fourth highest tone</source>
        <translation>Jeder Akkord ohne seinen vierthöchsten Ton</translation>
    </message>
    <message>
        <source>Each chord without its fifth highest tone</source>
        <translation>Jeder Akkord ohne seinen fünfthöchsten Ton</translation>
    </message>
    <message>
        <source>The tablature as plain text, in a file of your choice</source>
        <translation>Die Tabulatur als einfacher Text, in einer Datei deiner Wahl</translation>
    </message>
    <message>
        <source>A copy to change and try things on</source>
        <translation>Eine Kopie zum Ändern und Ausprobieren</translation>
    </message>
    <message>
        <source>Takes the song out of its album; Undo in the menu Edit brings it back</source>
        <translation>Nimmt den Song aus seinem Album; Rückgängig im Menü Bearbeiten bringt ihn zurück</translation>
    </message>
</context>
<context>
    <name>SongLog</name>
    <message>
        <source>Voicings extracted.</source>
        <translation>Voicings herausgelöst.</translation>
    </message>
    <message>
        <source>Song optimized for left hand.</source>
        <translation>Song für die linke Hand vereinfacht.</translation>
    </message>
    <message>
        <source>Song optimized for right hand.</source>
        <translation>Song für die rechte Hand vereinfacht.</translation>
    </message>
    <message>
        <source>Voices pushed down.</source>
        <translation>Stimmen auf tiefere Saiten geschoben.</translation>
    </message>
    <message>
        <source>Chords cleaned.</source>
        <translation>Akkorde bereinigt.</translation>
    </message>
    <message>
        <source>Best fingering found.</source>
        <translation>Bester Fingersatz gefunden.</translation>
    </message>
    <message>
        <source>Song trimmed.</source>
        <translation>Song auf Spielbares beschränkt.</translation>
    </message>
    <message>
        <source>Plectrum Lead line extracted.</source>
        <translation>Erste Plektrumstimme herausgelöst.</translation>
    </message>
    <message>
        <source>Plectrum Second line extracted.</source>
        <translation>Zweite Plektrumstimme herausgelöst.</translation>
    </message>
    <message>
        <source>Plectrum Third line extracted.</source>
        <translation>Dritte Plektrumstimme herausgelöst.</translation>
    </message>
    <message>
        <source>3/4 Metric added.</source>
        <translation>In 3/4-Takte gelegt.</translation>
    </message>
    <message>
        <source>4/4 Metric added</source>
        <translation>In 4/4-Takte gelegt</translation>
    </message>
    <message>
        <source>6/8 Metric added.</source>
        <translation>In 6/8-Takte gelegt.</translation>
    </message>
    <message>
        <source>12/8 Metric added.</source>
        <translation>In 12/8-Takte gelegt.</translation>
    </message>
    <message>
        <source>Leading three voices extracted.</source>
        <translation>Führende drei Stimmen herausgelöst.</translation>
    </message>
    <message>
        <source>Leading voices extracted.</source>
        <translation>Führende vier Stimmen herausgelöst.</translation>
    </message>
    <message>
        <source>Leading Five voices extracted.</source>
        <translation>Führende fünf Stimmen herausgelöst.</translation>
    </message>
    <message>
        <source>Leading Six voices extracted.</source>
        <translation>Führende sechs Stimmen herausgelöst.</translation>
    </message>
    <message>
        <source>Melody and Brass extracted.</source>
        <translation>Melodie und Bass herausgelöst.</translation>
    </message>
    <message>
        <source>Melody extracted.</source>
        <translation>Melodie herausgelöst.</translation>
    </message>
    <message>
        <source>Bass extracted.</source>
        <translation>Bass herausgelöst.</translation>
    </message>
    <message>
        <source>Second voice extracted.</source>
        <translation>Zweite Stimme herausgelöst.</translation>
    </message>
    <message>
        <source>Third voice extracted.</source>
        <translation>Dritte Stimme herausgelöst.</translation>
    </message>
    <message>
        <source>Fourth voice extracted.</source>
        <translation>Vierte Stimme herausgelöst.</translation>
    </message>
    <message>
        <source>Fifth voice extracted.</source>
        <translation>Fünfte Stimme herausgelöst.</translation>
    </message>
    <message>
        <source>Apply loudest two tones.</source>
        <translation>Auf die zwei lautesten Töne beschränkt.</translation>
    </message>
    <message>
        <source>Apply loudest three tones.</source>
        <translation>Auf die drei lautesten Töne beschränkt.</translation>
    </message>
    <message>
        <source>Apply loudest four tones.</source>
        <translation>Auf die vier lautesten Töne beschränkt.</translation>
    </message>
    <message>
        <source>Apply loudest five tones.</source>
        <translation>Auf die fünf lautesten Töne beschränkt.</translation>
    </message>
    <message>
        <source>Apply loudest six tones.</source>
        <translation>Auf die sechs lautesten Töne beschränkt.</translation>
    </message>
    <message>
        <source>Non-Chord Tones removed.</source>
        <translation>Akkordfremde Töne entfernt.</translation>
    </message>
    <message>
        <source>4th chord option removed.</source>
        <translation>Septimen und Sexten entfernt.</translation>
    </message>
    <message>
        <source>5th chord option removed.</source>
        <translation>Nonen entfernt.</translation>
    </message>
    <message>
        <source>6th chord option removed.</source>
        <translation>Undezimen entfernt.</translation>
    </message>
    <message>
        <source>Chord options from 4th removed.</source>
        <translation>Optionstöne ab der Septime entfernt.</translation>
    </message>
    <message>
        <source>Chord options from 5th removed.</source>
        <translation>Optionstöne ab der None entfernt.</translation>
    </message>
    <message>
        <source>Chord options from 6th removed.</source>
        <translation>Optionstöne ab der Undezime entfernt.</translation>
    </message>
    <message>
        <source>Melody and Brass removed.</source>
        <translation>Melodie und Bass entfernt.</translation>
    </message>
    <message>
        <source>Melody removed.</source>
        <translation>Melodie entfernt.</translation>
    </message>
    <message>
        <source>Brass removed.</source>
        <translation>Bass entfernt.</translation>
    </message>
    <message>
        <source>2nd voice removed.</source>
        <translation>2. Stimme entfernt.</translation>
    </message>
    <message>
        <source>3rd voice removed.</source>
        <translation>3. Stimme entfernt.</translation>
    </message>
    <message>
        <source>4th voice removed.</source>
        <translation>4. Stimme entfernt.</translation>
    </message>
    <message>
        <source>5th voice removed.</source>
        <translation>5. Stimme entfernt.</translation>
    </message>
    <message>
        <source>Song transposed up by one half tone.</source>
        <translation>Song um einen Halbton nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by one tone.</source>
        <translation>Song um einen Ganzton nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a minor terz.</source>
        <translation>Song um eine kleine Terz nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a major terz.</source>
        <translation>Song um eine große Terz nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a quart.</source>
        <translation>Song um eine Quarte nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a tritonus.</source>
        <translation>Song um einen Tritonus nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a quinta.</source>
        <translation>Song um eine Quinte nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a minor six.</source>
        <translation>Song um eine kleine Sexte nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a six.</source>
        <translation>Song um eine große Sexte nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a minor sept.</source>
        <translation>Song um eine kleine Septime nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed up by a major sept.</source>
        <translation>Song um eine große Septime nach oben transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by one half tone.</source>
        <translation>Song um einen Halbton nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by one tone.</source>
        <translation>Song um einen Ganzton nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a minor terz.</source>
        <translation>Song um eine kleine Terz nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a major terz.</source>
        <translation>Song um eine große Terz nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a quart.</source>
        <translation>Song um eine Quarte nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a tritonus.</source>
        <translation>Song um einen Tritonus nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a quinta.</source>
        <translation>Song um eine Quinte nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a minor six.</source>
        <translation>Song um eine kleine Sexte nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a six.</source>
        <translation>Song um eine große Sexte nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a minor sept.</source>
        <translation>Song um eine kleine Septime nach unten transponiert.</translation>
    </message>
    <message>
        <source>Song transposed down by a major sept.</source>
        <translation>Song um eine große Septime nach unten transponiert.</translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Apply Standard Filters</source>
        <translation>Standardfilter anwenden</translation>
    </message>
    <message>
        <source>All Standard Filters</source>
        <translation>Alle Standardfilter</translation>
    </message>
    <message>
        <source>Detect Voicings</source>
        <translation>Voicings erkennen</translation>
    </message>
    <message>
        <source>Simplify Left Hand</source>
        <translation>Linke Hand vereinfachen</translation>
    </message>
    <message>
        <source>Simplify Right Hand</source>
        <translation>Rechte Hand vereinfachen</translation>
    </message>
    <message>
        <source>Push Down Strings</source>
        <translation>Auf tiefere Saiten schieben</translation>
    </message>
    <message>
        <source>Clean Chords</source>
        <translation>Akkorde bereinigen</translation>
    </message>
    <message>
        <source>Find Best Fingering</source>
        <translation>Besten Fingersatz finden</translation>
    </message>
    <message>
        <source>Trim To Playable</source>
        <translation>Auf Spielbares beschränken</translation>
    </message>
    <message>
        <source>Apply Plectrum Filters</source>
        <translation>Plektrumfilter anwenden</translation>
    </message>
    <message>
        <source>Extract Lead (1st)</source>
        <translation>Führungsstimme (1.) herauslösen</translation>
    </message>
    <message>
        <source>Extract 2nd</source>
        <translation>2. Stimme herauslösen</translation>
    </message>
    <message>
        <source>Extract 3rd</source>
        <translation>3. Stimme herauslösen</translation>
    </message>
    <message>
        <source>3/4</source>
        <translation>3/4</translation>
    </message>
    <message>
        <source>4/4</source>
        <translation>4/4</translation>
    </message>
    <message>
        <source>6/8</source>
        <translation>6/8</translation>
    </message>
    <message>
        <source>12/8</source>
        <translation>12/8</translation>
    </message>
    <message>
        <source>Extract Voices</source>
        <translation>Stimmen herauslösen</translation>
    </message>
    <message>
        <source>Leading Three</source>
        <translation>Führende drei</translation>
    </message>
    <message>
        <source>Leading Four</source>
        <translation>Führende vier</translation>
    </message>
    <message>
        <source>Leading Five</source>
        <translation>Führende fünf</translation>
    </message>
    <message>
        <source>Leading Six</source>
        <translation>Führende sechs</translation>
    </message>
    <message>
        <source>Melody</source>
        <translation>Melodie</translation>
    </message>
    <message>
        <source>2nd</source>
        <translation>2. Stimme</translation>
    </message>
    <message>
        <source>3rd</source>
        <translation>3. Stimme</translation>
    </message>
    <message>
        <source>4th</source>
        <translation>4. Stimme</translation>
    </message>
    <message>
        <source>5th</source>
        <translation>5. Stimme</translation>
    </message>
    <message>
        <source>Extract Loudest Voices</source>
        <translation>Lauteste Stimmen herauslösen</translation>
    </message>
    <message>
        <source>Loudest Two</source>
        <translation>Lauteste zwei</translation>
    </message>
    <message>
        <source>Loudest Three</source>
        <translation>Lauteste drei</translation>
    </message>
    <message>
        <source>Loudest Four</source>
        <translation>Lauteste vier</translation>
    </message>
    <message>
        <source>Loudest Five</source>
        <translation>Lauteste fünf</translation>
    </message>
    <message>
        <source>Loudest Six</source>
        <translation>Lauteste sechs</translation>
    </message>
    <message>
        <source>Remove Options</source>
        <translation>Optionstöne entfernen</translation>
    </message>
    <message>
        <source>Remove Non Harmony Tones</source>
        <translation>Akkordfremde Töne entfernen</translation>
    </message>
    <message>
        <source>Remove the Seven</source>
        <translation>Septime entfernen</translation>
    </message>
    <message>
        <source>Remove the Nine</source>
        <translation>None entfernen</translation>
    </message>
    <message>
        <source>Remove the Eleven</source>
        <translation>Undezime entfernen</translation>
    </message>
    <message>
        <source>All from Seven</source>
        <translation>Alles ab der Septime</translation>
    </message>
    <message>
        <source>All from Nine</source>
        <translation>Alles ab der None</translation>
    </message>
    <message>
        <source>All from Eleven</source>
        <translation>Alles ab der Undezime</translation>
    </message>
    <message>
        <source>Remove Voices</source>
        <translation>Stimmen entfernen</translation>
    </message>
    <message>
        <source>Remove Melody</source>
        <translation>Melodie entfernen</translation>
    </message>
    <message>
        <source>Remove 2nd Voice</source>
        <translation>2. Stimme entfernen</translation>
    </message>
    <message>
        <source>Remove 4th Voice</source>
        <translation>4. Stimme entfernen</translation>
    </message>
    <message>
        <source>Remove 5th Voice</source>
        <translation>5. Stimme entfernen</translation>
    </message>
    <message>
        <source>Transpose Up By</source>
        <translation>Nach oben transponieren um</translation>
    </message>
    <message>
        <source>One Half Tone</source>
        <translation>Einen Halbton</translation>
    </message>
    <message>
        <source>A Second (2 Half Tones)</source>
        <translation>Eine Sekunde (2 Halbtöne)</translation>
    </message>
    <message>
        <source>Transpose Down By</source>
        <translation>Nach unten transponieren um</translation>
    </message>
    <message>
        <source>Export To Textfile</source>
        <translation>Als Textdatei exportieren</translation>
    </message>
    <message>
        <source>Clone</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Melody and Bass</source>
        <translation>Melodie und Bass</translation>
    </message>
    <message>
        <source>Bass</source>
        <translation>Bass</translation>
    </message>
    <message>
        <source>Remove Melody and Bass</source>
        <translation>Melodie und Bass entfernen</translation>
    </message>
    <message>
        <source>Remove Bass</source>
        <translation>Bass entfernen</translation>
    </message>
    <message>
        <source>Remove 3rd Voice</source>
        <translation>3. Stimme entfernen</translation>
    </message>
    <message>
        <source>A Minor Third (3 Half Tones)</source>
        <translation>Eine kleine Terz (3 Halbtöne)</translation>
    </message>
    <message>
        <source>A Major Third (4 Half Tones)</source>
        <translation>Eine große Terz (4 Halbtöne)</translation>
    </message>
    <message>
        <source>A Fourth (5 Half Tones)</source>
        <translation>Eine Quarte (5 Halbtöne)</translation>
    </message>
    <message>
        <source>A Tritone (6 Half Tones)</source>
        <translation>Ein Tritonus (6 Halbtöne)</translation>
    </message>
    <message>
        <source>A Fifth (7 Half Tones)</source>
        <translation>Eine Quinte (7 Halbtöne)</translation>
    </message>
    <message>
        <source>A Minor Sixth (8 Half Tones)</source>
        <translation>Eine kleine Sexte (8 Halbtöne)</translation>
    </message>
    <message>
        <source>A Major Sixth (9 Half Tones)</source>
        <translation>Eine große Sexte (9 Halbtöne)</translation>
    </message>
    <message>
        <source>A Minor Seventh (10 Half Tones)</source>
        <translation>Eine kleine Septime (10 Halbtöne)</translation>
    </message>
    <message>
        <source>A Major Seventh (11 Half Tones)</source>
        <translation>Eine große Septime (11 Halbtöne)</translation>
    </message>
    <message>
        <source>Apply Rhythm Filters</source>
        <translation>Rhythmusfilter anwenden</translation>
    </message>
</context>
<context>
    <name>SoundFiles</name>
    <message>
        <source>Sound and video files (%1)</source>
        <translation>Ton- und Videodateien (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Recordings, tabs and scores (%1)</source>
        <translation>Aufnahmen, Tabs und Noten (%1)</translation>
    </message>
    <message>
        <source>Tabs and scores (%1)</source>
        <translation>Tabs und Noten (%1)</translation>
    </message>
</context>
<context>
    <name>Steps</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Strumming</name>
    <message>
        <source>On the beats</source>
        <translation>Auf die Zählzeiten</translation>
    </message>
    <message>
        <source>Held through the bar</source>
        <translation>Den Takt über gehalten</translation>
    </message>
    <message>
        <source>Down and up in eighths</source>
        <translation>Ab und auf in Achteln</translation>
    </message>
    <message>
        <source>Eighths, all downwards</source>
        <translation>Achtel, alle abwärts</translation>
    </message>
    <message>
        <source>Folk song</source>
        <translation>Volkslied</translation>
    </message>
    <message>
        <source>Ballad</source>
        <translation>Ballade</translation>
    </message>
    <message>
        <source>Bass and chord</source>
        <translation>Bass und Akkord</translation>
    </message>
    <message>
        <source>Bass, then down and up</source>
        <translation>Bass, dann ab und auf</translation>
    </message>
    <message>
        <source>Short, between the beats</source>
        <translation>Kurz, zwischen den Zählzeiten</translation>
    </message>
    <message>
        <source>Sixteenths</source>
        <translation>Sechzehntel</translation>
    </message>
    <message>
        <source>Across the beats</source>
        <translation>Über die Zählzeiten hinweg</translation>
    </message>
    <message>
        <source>Twice, then a rest</source>
        <translation>Zweimal, dann Pause</translation>
    </message>
</context>
<context>
    <name>UndoAction</name>
    <message>
        <source>Remove Tones</source>
        <translation>Töne entfernen</translation>
    </message>
    <message>
        <source>Move Tones</source>
        <translation>Töne verschieben</translation>
    </message>
    <message>
        <source>Extract 2nd</source>
        <translation>2. Stimme herauslösen</translation>
    </message>
    <message>
        <source>Extract 3rd</source>
        <translation>3. Stimme herauslösen</translation>
    </message>
    <message>
        <source>Apply 3/4</source>
        <translation>3/4 anwenden</translation>
    </message>
    <message>
        <source>Apply 4/4</source>
        <translation>4/4 anwenden</translation>
    </message>
    <message>
        <source>Apply 6/8</source>
        <translation>6/8 anwenden</translation>
    </message>
    <message>
        <source>Apply 12/8</source>
        <translation>12/8 anwenden</translation>
    </message>
    <message>
        <source>Extract Leading Three</source>
        <translation>Führende drei herauslösen</translation>
    </message>
    <message>
        <source>Extract Leading Four</source>
        <translation>Führende vier herauslösen</translation>
    </message>
    <message>
        <source>Extract Leading Five</source>
        <translation>Führende fünf herauslösen</translation>
    </message>
    <message>
        <source>Extract Leading Six</source>
        <translation>Führende sechs herauslösen</translation>
    </message>
    <message>
        <source>Extract Melody</source>
        <translation>Melodie herauslösen</translation>
    </message>
    <message>
        <source>Extract 4th</source>
        <translation>4. Stimme herauslösen</translation>
    </message>
    <message>
        <source>Extract 5th</source>
        <translation>5. Stimme herauslösen</translation>
    </message>
    <message>
        <source>Extract Loudest Two</source>
        <translation>Lauteste zwei herauslösen</translation>
    </message>
    <message>
        <source>Extract Loudest Three</source>
        <translation>Lauteste drei herauslösen</translation>
    </message>
    <message>
        <source>Extract Loudest Four</source>
        <translation>Lauteste vier herauslösen</translation>
    </message>
    <message>
        <source>Extract Loudest Five</source>
        <translation>Lauteste fünf herauslösen</translation>
    </message>
    <message>
        <source>Extract Loudest Six</source>
        <translation>Lauteste sechs herauslösen</translation>
    </message>
    <message>
        <source>Remove All from Seven</source>
        <translation>Alles ab der Septime entfernen</translation>
    </message>
    <message>
        <source>Remove All from Nine</source>
        <translation>Alles ab der None entfernen</translation>
    </message>
    <message>
        <source>Remove All from Eleven</source>
        <translation>Alles ab der Undezime entfernen</translation>
    </message>
    <message>
        <source>Transpose Up By One Half Tone</source>
        <translation>Um einen Halbton nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Second (2 Half Tones)</source>
        <translation>Um eine Sekunde (2 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By One Half Tone</source>
        <translation>Um einen Halbton nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Second (2 Half Tones)</source>
        <translation>Um eine Sekunde (2 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Clone</source>
        <translation>Song duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Song löschen</translation>
    </message>
    <message>
        <source>Activate Tone</source>
        <translation>Ton aktivieren</translation>
    </message>
    <message>
        <source>Add Tone</source>
        <translation>Ton hinzufügen</translation>
    </message>
    <message>
        <source>Change Duration</source>
        <translation>Dauer ändern</translation>
    </message>
    <message>
        <source>Change Fret</source>
        <translation>Bund ändern</translation>
    </message>
    <message>
        <source>Change Tuning</source>
        <translation>Stimmung ändern</translation>
    </message>
    <message>
        <source>Clone Album</source>
        <translation>Album duplizieren</translation>
    </message>
    <message>
        <source>Deactivate Tone</source>
        <translation>Ton stummschalten</translation>
    </message>
    <message>
        <source>Delete Album</source>
        <translation>Album löschen</translation>
    </message>
    <message>
        <source>Delete Chord</source>
        <translation>Akkord löschen</translation>
    </message>
    <message>
        <source>Delete Chords</source>
        <translation>Akkorde löschen</translation>
    </message>
    <message>
        <source>Delete Instrument</source>
        <translation>Instrument löschen</translation>
    </message>
    <message>
        <source>Import Instrument</source>
        <translation>Instrument importieren</translation>
    </message>
    <message>
        <source>Import WAV File</source>
        <translation>Aufnahme importieren</translation>
    </message>
    <message>
        <source>Insert Chord</source>
        <translation>Akkord einfügen</translation>
    </message>
    <message>
        <source>Move Song</source>
        <translation>Song verschieben</translation>
    </message>
    <message>
        <source>New Album</source>
        <translation>Neues Album</translation>
    </message>
    <message>
        <source>New Tuning</source>
        <translation>Neue Stimmung</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Remove Tone</source>
        <translation>Ton entfernen</translation>
    </message>
    <message>
        <source>Rename Album</source>
        <translation>Album umbenennen</translation>
    </message>
    <message>
        <source>Rename Instrument</source>
        <translation>Instrument umbenennen</translation>
    </message>
    <message>
        <source>Rename Song</source>
        <translation>Song umbenennen</translation>
    </message>
    <message>
        <source>Rename Tuning</source>
        <translation>Stimmung umbenennen</translation>
    </message>
    <message>
        <source>Reset Loop</source>
        <translation>Loop zurücksetzen</translation>
    </message>
    <message>
        <source>Select Instrument</source>
        <translation>Instrument auswählen</translation>
    </message>
    <message>
        <source>Select Tuning</source>
        <translation>Stimmung auswählen</translation>
    </message>
    <message>
        <source>Set Chord Name</source>
        <translation>Akkord benennen</translation>
    </message>
    <message>
        <source>Set Loop</source>
        <translation>Loop setzen</translation>
    </message>
    <message>
        <source>Calibrate Instrument</source>
        <translation>Instrument einmessen</translation>
    </message>
    <message>
        <source>Merge Songs</source>
        <translation>Songs zusammenführen</translation>
    </message>
    <message>
        <source>Extract Part</source>
        <translation>Ausschnitt herauslösen</translation>
    </message>
    <message>
        <source>Delete Tuning</source>
        <translation>Stimmung löschen</translation>
    </message>
    <message>
        <source>Delete Songs</source>
        <translation>Songs löschen</translation>
    </message>
    <message>
        <source>Move Tone</source>
        <translation>Ton verschieben</translation>
    </message>
    <message>
        <source>Paste Chords</source>
        <translation>Akkorde einfügen</translation>
    </message>
    <message>
        <source>Go On Hearing</source>
        <translation>Weiter hören</translation>
    </message>
    <message>
        <source>Take As Whole</source>
        <translation>Als ganz ansehen</translation>
    </message>
    <message>
        <source>Set Chord</source>
        <translation>Akkord setzen</translation>
    </message>
    <message>
        <source>Extract Melody and Bass</source>
        <translation>Melodie und Bass herauslösen</translation>
    </message>
    <message>
        <source>Extract Bass</source>
        <translation>Bass herauslösen</translation>
    </message>
    <message>
        <source>Transpose Up By A Minor Third (3 Half Tones)</source>
        <translation>Um eine kleine Terz (3 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Major Third (4 Half Tones)</source>
        <translation>Um eine große Terz (4 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Fourth (5 Half Tones)</source>
        <translation>Um eine Quarte (5 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Tritone (6 Half Tones)</source>
        <translation>Um einen Tritonus (6 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Fifth (7 Half Tones)</source>
        <translation>Um eine Quinte (7 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Minor Sixth (8 Half Tones)</source>
        <translation>Um eine kleine Sexte (8 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Major Sixth (9 Half Tones)</source>
        <translation>Um eine große Sexte (9 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Minor Seventh (10 Half Tones)</source>
        <translation>Um eine kleine Septime (10 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Up By A Major Seventh (11 Half Tones)</source>
        <translation>Um eine große Septime (11 Halbtöne) nach oben transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Minor Third (3 Half Tones)</source>
        <translation>Um eine kleine Terz (3 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Major Third (4 Half Tones)</source>
        <translation>Um eine große Terz (4 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Fourth (5 Half Tones)</source>
        <translation>Um eine Quarte (5 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Tritone (6 Half Tones)</source>
        <translation>Um einen Tritonus (6 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Fifth (7 Half Tones)</source>
        <translation>Um eine Quinte (7 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Minor Sixth (8 Half Tones)</source>
        <translation>Um eine kleine Sexte (8 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Major Sixth (9 Half Tones)</source>
        <translation>Um eine große Sexte (9 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Minor Seventh (10 Half Tones)</source>
        <translation>Um eine kleine Septime (10 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Transpose Down By A Major Seventh (11 Half Tones)</source>
        <translation>Um eine große Septime (11 Halbtöne) nach unten transponieren</translation>
    </message>
    <message>
        <source>Easy Version</source>
        <translation>Einfache Fassung</translation>
    </message>
    <message>
        <source>Sing Along</source>
        <translation>Mitsingen</translation>
    </message>
    <message>
        <source>Change Rhythm</source>
        <translation>Rhythmus ändern</translation>
    </message>
    <message>
        <source>Double Tempo</source>
        <translation>Tempo verdoppeln</translation>
    </message>
    <message>
        <source>Half Tempo</source>
        <translation>Tempo halbieren</translation>
    </message>
    <message>
        <source>Three Beats for Two</source>
        <translation>Drei Schläge statt zwei</translation>
    </message>
    <message>
        <source>Two Beats for Three</source>
        <translation>Zwei Schläge statt drei</translation>
    </message>
    <message>
        <source>Set Metre</source>
        <translation>Taktart setzen</translation>
    </message>
    <message>
        <source>Bar Line Here</source>
        <translation>Taktstrich hier</translation>
    </message>
    <message>
        <source>Bar Lines Earlier</source>
        <translation>Taktstriche früher</translation>
    </message>
    <message>
        <source>Bar Lines Later</source>
        <translation>Taktstriche später</translation>
    </message>
    <message>
        <source>Beats Earlier</source>
        <translation>Schläge früher</translation>
    </message>
    <message>
        <source>Beats Later</source>
        <translation>Schläge später</translation>
    </message>
    <message>
        <source>Move Beat</source>
        <translation>Schlag verschieben</translation>
    </message>
    <message>
        <source>Set Feel</source>
        <translation>Spielgefühl setzen</translation>
    </message>
    <message>
        <source>Set Shortest Notes</source>
        <translation>Kürzeste Noten setzen</translation>
    </message>
    <message>
        <source>Rhythm As Heard</source>
        <translation>Rhythmus wie gehört</translation>
    </message>
    <message>
        <source>Choose Other Reading</source>
        <translation>Andere Lesart wählen</translation>
    </message>
    <message>
        <source>Set Tempo</source>
        <translation>Tempo setzen</translation>
    </message>
    <message>
        <source>Tap Along</source>
        <translation>Mitklopfen</translation>
    </message>
    <message>
        <source>Lay Into Bars</source>
        <translation>In Takte legen</translation>
    </message>
    <message>
        <source>Lay Into Slices</source>
        <translation>In Abschnitte legen</translation>
    </message>
    <message>
        <source>Move Chord</source>
        <translation>Akkord verschieben</translation>
    </message>
    <message>
        <source>Hear Again</source>
        <translation>Noch einmal hören</translation>
    </message>
    <message>
        <source>Take Note</source>
        <translation>Ton übernehmen</translation>
    </message>
    <message>
        <source>Drop Note</source>
        <translation>Ton verwerfen</translation>
    </message>
    <message>
        <source>Confirm Note</source>
        <translation>Ton bestätigen</translation>
    </message>
    <message>
        <source>Confirm Notes</source>
        <translation>Töne bestätigen</translation>
    </message>
    <message>
        <source>Take Other Note</source>
        <translation>Anderen Ton übernehmen</translation>
    </message>
    <message>
        <source>Correct Notes</source>
        <translation>Töne korrigieren</translation>
    </message>
    <message>
        <source>More or Fewer Notes</source>
        <translation>Mehr oder weniger Töne</translation>
    </message>
    <message>
        <source>Find Recording</source>
        <translation>Aufnahme suchen</translation>
    </message>
    <message>
        <source>Hear Part Again</source>
        <translation>Teil noch einmal hören</translation>
    </message>
    <message>
        <source>Set Hand Position</source>
        <translation>Handlage festlegen</translation>
    </message>
    <message>
        <source>Change Shape</source>
        <translation>Griff wechseln</translation>
    </message>
    <message>
        <source>Move Phrase</source>
        <translation>Phrase verschieben</translation>
    </message>
    <message>
        <source>Finger Anew</source>
        <translation>Fingersatz neu wählen</translation>
    </message>
    <message>
        <source>Change Lyrics</source>
        <translation>Liedtext ändern</translation>
    </message>
    <message>
        <source>Import File</source>
        <translation>Datei importieren</translation>
    </message>
    <message>
        <source>Import Chords</source>
        <translation>Akkorde importieren</translation>
    </message>
    <message>
        <source>Strum</source>
        <translation>Schlagmuster</translation>
    </message>
    <message>
        <source>Retune Song</source>
        <translation>Song umstimmen</translation>
    </message>
    <message>
        <source>Choose Grip</source>
        <translation>Griff wählen</translation>
    </message>
    <message>
        <source>Move Capo</source>
        <translation>Kapodaster versetzen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::AlbumMenu</name>
    <message>
        <source>&amp;Album</source>
        <translation>A&amp;lbum</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::Application</name>
    <message>
        <source>The Korvel before is still keeping what it has heard, or does not answer. This one opens as soon as that one has ended.</source>
        <translation>Das vorige Korvel sichert noch, was es gehört hat, oder antwortet nicht. Dieses öffnet sich, sobald jenes beendet ist.</translation>
    </message>
</context>
<context>
    <name>korvel::ui::Arrivals</name>
    <message>
        <source>%1: no tones were heard in it; is it a guitar alone, and loud enough?</source>
        <translation>%1: Es waren keine Töne zu hören; ist es eine Gitarre allein, und laut genug?</translation>
    </message>
    <message>
        <source>%1 is imported</source>
        <translation>%1 ist importiert</translation>
    </message>
    <message>
        <source>Space plays it, digits change the fret at the cursor, the menu Song arranges it</source>
        <translation>Die Leertaste spielt ab, Ziffern ändern den Bund unter dem Cursor, das Menü Song arrangiert</translation>
    </message>
    <message>
        <source>%1 is recorded</source>
        <translation>%1 ist aufgenommen</translation>
    </message>
    <message>
        <source>It is in slices, as it is played too freely for bars; Tap Along and Set Tempo in the menu Edit, Rhythm make bars of it</source>
        <translation>Er steht in Abschnitten, weil er für Takte zu frei gespielt ist; Mitklopfen und Tempo setzen im Menü Bearbeiten, Rhythmus machen Takte daraus</translation>
    </message>
    <message>
        <source>It sounds like a band: the song has its chords; Hear Again as One Guitar, in the menu of the song, makes notes of it</source>
        <translation>Es klingt nach einer Band: Der Song hat ihre Akkorde; „Noch einmal als eine Gitarre hören“ im Menü des Songs macht Töne daraus</translation>
    </message>
    <message>
        <source>It sounds like one guitar: the song has its notes; Hear Again as a Band, in the menu of the song, makes chords of it</source>
        <translation>Es klingt nach einer Gitarre: Der Song hat ihre Töne; „Noch einmal als Band hören“ im Menü des Songs macht Akkorde daraus</translation>
    </message>
</context>
<context>
    <name>korvel::ui::CalibrationDialog</name>
    <message>
        <source>String %1 open</source>
        <translation>Saite %1 leer</translation>
    </message>
    <message>
        <source>String %1, fret %2</source>
        <translation>Saite %1, Bund %2</translation>
    </message>
    <message>
        <source>My Guitar</source>
        <translation>Meine Gitarre</translation>
    </message>
    <message>
        <source>My Guitar %1</source>
        <translation>Meine Gitarre %1</translation>
    </message>
    <message>
        <source>&amp;Choose File ...</source>
        <translation>&amp;Datei wählen ...</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Calibrate From Recorded Notes</source>
        <translation>Aus aufgenommenen Tönen einmessen</translation>
    </message>
    <message>
        <source>Create &amp;Instrument</source>
        <translation>&amp;Instrument anlegen</translation>
    </message>
    <message>
        <source>1. Play single notes, one after the other: each string open and then at fret 7, from the lowest string to the highest.</source>
        <translation>1. Spiele einzelne Töne nacheinander: jede Saite leer und dann im 7. Bund, von der tiefsten Saite bis zur höchsten.</translation>
    </message>
    <message>
        <source>2. Let each ring for three seconds, mute it, and leave a second of silence.</source>
        <translation>2. Lass jeden drei Sekunden klingen, dämpfe ihn, und lass eine Sekunde Stille.</translation>
    </message>
    <message>
        <source>3. Play as loud as in your recordings, the guitar alone. Single notes at other frets, up to fret 12, make it better.</source>
        <translation>3. Spiele so laut wie auf deinen Aufnahmen, die Gitarre allein. Einzelne Töne in anderen Bünden, bis zum 12., machen es besser.</translation>
    </message>
    <message>
        <source>The instrument tells the classic detection, and the chords shown while you record, which tones are only overtones. The precise detection hears without an instrument.</source>
        <translation>Das Instrument sagt der klassischen Erkennung, und den Akkorden, die beim Aufnehmen erscheinen, welche Töne nur Obertöne sind. Die genaue Erkennung hört ohne Instrument.</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>or drop a file here, or record now:</source>
        <translation>oder eine Datei hierher ziehen, oder jetzt aufnehmen:</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Notes that were heard</source>
        <translation>Töne, die zu hören waren</translation>
    </message>
    <message>
        <source>Name of the instrument</source>
        <translation>Name des Instruments</translation>
    </message>
    <message>
        <source>&amp;Name of the instrument</source>
        <translation>&amp;Name des Instruments</translation>
    </message>
    <message>
        <source>Recorded Notes</source>
        <translation>Aufgenommene Töne</translation>
    </message>
    <message>
        <source>Play the notes, then press Stop.</source>
        <translation>Spiele die Töne, dann drücke Stopp.</translation>
    </message>
    <message>
        <source>Listening ...</source>
        <translation>Hört zu ...</translation>
    </message>
    <message>
        <source>Choose a recording of the notes, or record them.</source>
        <translation>Wähle eine Aufnahme der Töne, oder nimm sie auf.</translation>
    </message>
    <message>
        <source>✓ heard</source>
        <translation>✓ gehört</translation>
    </message>
    <message>
        <source>✗ missing</source>
        <translation>✗ fehlt</translation>
    </message>
    <message>
        <source>Also: %1</source>
        <translation>Außerdem: %1</translation>
    </message>
    <message>
        <source>Every string was heard. The instrument becomes better with the missing notes.</source>
        <translation>Jede Saite war zu hören. Mit den fehlenden Tönen wird das Instrument besser.</translation>
    </message>
    <message>
        <source>All notes were heard. Give the instrument a name and create it.</source>
        <translation>Alle Töne waren zu hören. Gib dem Instrument einen Namen und lege es an.</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Stopp</translation>
    </message>
    <message>
        <source>&amp;Record</source>
        <translation>&amp;Aufnehmen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::CapoDialog</name>
    <message>
        <source>Which Capo?</source>
        <translation>Welcher Kapodaster?</translation>
    </message>
    <message>
        <source>Capo</source>
        <translation>Kapodaster</translation>
    </message>
    <message>
        <source>Shapes of</source>
        <translation>Griffe von</translation>
    </message>
    <message>
        <source>Open chords</source>
        <translation>Offene Akkorde</translation>
    </message>
    <message>
        <source>Of the time</source>
        <translation>Zeitanteil</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Fret %1</source>
        <translation>Bund %1</translation>
    </message>
    <message>
        <source>%1: the best</source>
        <comment>a capo</comment>
        <translation>%1: am besten</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>With a capo the song sounds as before and is played in the shapes of another key.</source>
        <translation>Mit einem Kapodaster klingt der Song wie zuvor und wird in den Griffen einer anderen Tonart gespielt.</translation>
    </message>
</context>
<context>
    <name>korvel::ui::ChordWords</name>
    <message>
        <source>string %1</source>
        <translation>Saite %1</translation>
    </message>
    <message>
        <source>%1 string (%2)</source>
        <translation>%1-Saite (%2)</translation>
    </message>
    <message>
        <source>%1 string</source>
        <translation>%1-Saite</translation>
    </message>
    <message>
        <source>bar %1</source>
        <translation>Takt %1</translation>
    </message>
    <message>
        <source>pick-up</source>
        <translation>Auftakt</translation>
    </message>
    <message>
        <source>chord %1 of %2</source>
        <translation>Akkord %1 von %2</translation>
    </message>
    <message>
        <source>silent</source>
        <translation>stumm</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>a string, what is played on it</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a chord, its tones</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>open</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>fret %1</source>
        <translation>Bund %1</translation>
    </message>
    <message>
        <source>%1 (inactive)</source>
        <translation>%1 (inaktiv)</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>hand anywhere from here</source>
        <translation>ab hier Hand beliebig</translation>
    </message>
    <message>
        <source>hand near fret %1 from here</source>
        <translation>ab hier Hand am Bund %1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::DiagramSwitches</name>
    <message>
        <source>Chord Diagrams</source>
        <translation>Akkorddiagramme</translation>
    </message>
    <message>
        <source>Left-Handed Diagrams and Fretboard</source>
        <translation>Diagramme und Griffbrett für Linkshänder</translation>
    </message>
</context>
<context>
    <name>korvel::ui::DoubtMenu</name>
    <message>
        <source>&amp;Next Doubtful Place</source>
        <translation>&amp;Nächste fragliche Stelle</translation>
    </message>
    <message>
        <source>N</source>
        <translation>N</translation>
    </message>
    <message>
        <source>&amp;Previous Doubtful Place</source>
        <translation>&amp;Vorige fragliche Stelle</translation>
    </message>
    <message>
        <source>Shift+N</source>
        <translation>Shift+N</translation>
    </message>
    <message>
        <source>&amp;Confirm What Is There</source>
        <translation>&amp;Bestätigen, was da ist</translation>
    </message>
    <message>
        <source>&amp;Drop Note</source>
        <translation>Ton ver&amp;werfen</translation>
    </message>
    <message>
        <source>&amp;Take What Else Was Heard</source>
        <translation>&amp;Anderes Gehörtes übernehmen</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>&amp;Fewer or More Notes ...</source>
        <translation>Weniger oder mehr Töne ...</translation>
    </message>
    <message>
        <source>No song is shown</source>
        <translation>Es wird kein Song gezeigt</translation>
    </message>
    <message>
        <source>Stop playing first, then edit</source>
        <translation>Erst die Wiedergabe anhalten, dann bearbeiten</translation>
    </message>
    <message>
        <source>The store cannot be written</source>
        <translation>In den Speicher kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>; </source>
        <comment>between two things that may be wrong</comment>
        <translation>; </translation>
    </message>
    <message>
        <source>Nothing is doubted in this song any more</source>
        <translation>An diesem Song ist nichts mehr fraglich</translation>
    </message>
    <message>
        <source>No note of the recording is at the cursor</source>
        <translation>Unter dem Cursor steht kein Ton der Aufnahme</translation>
    </message>
    <message>
        <source>Nothing else was heard here</source>
        <translation>Hier wurde sonst nichts gehört</translation>
    </message>
    <message>
        <source>Notes that come: %1. Notes that go: %2.</source>
        <translation>Töne, die kommen: %1. Töne, die gehen: %2.</translation>
    </message>
    <message>
        <source>Select the chords first that are to be heard again</source>
        <translation>Wähle zuerst die Akkorde, die noch einmal gehört werden sollen</translation>
    </message>
    <message>
        <source>Heard Notes</source>
        <translation>Gehörte Töne</translation>
    </message>
    <message>
        <source>&amp;Hear Selection Again ...</source>
        <translation>Auswahl noch einmal &amp;hören ...</translation>
    </message>
    <message>
        <source>Hearing the selection again ...</source>
        <translation>Die Auswahl wird noch einmal gehört ...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Notes that the song&apos;s strings do not have: %1.</source>
        <translation>Töne, die die Saiten des Songs nicht haben: %1.</translation>
    </message>
</context>
<context>
    <name>korvel::ui::EasyDialog</name>
    <message>
        <source>Easy Version</source>
        <translation>Einfache Fassung</translation>
    </message>
    <message>
        <source>&amp;Make It</source>
        <translation>&amp;Erstellen</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Spielen</translation>
    </message>
    <message>
        <source>Simple chords</source>
        <translation>Einfache Akkorde</translation>
    </message>
    <message>
        <source>Bass and melody</source>
        <translation>Bass und Melodie</translation>
    </message>
    <message>
        <source>Melody only</source>
        <translation>Nur die Melodie</translation>
    </message>
    <message>
        <source>&amp;Key</source>
        <translation>&amp;Tonart</translation>
    </message>
    <message>
        <source>As recorded</source>
        <translation>Wie aufgenommen</translation>
    </message>
    <message>
        <source>Higher or lower, for open chords</source>
        <translation>Höher oder tiefer, für offene Akkorde</translation>
    </message>
    <message>
        <source>With a capo, for open chords</source>
        <translation>Mit Kapodaster, für offene Akkorde</translation>
    </message>
    <message>
        <source>&amp;Frets</source>
        <translation>&amp;Bünde</translation>
    </message>
    <message>
        <source>Up to the third</source>
        <translation>Bis zum dritten</translation>
    </message>
    <message>
        <source>Up to the fifth</source>
        <translation>Bis zum fünften</translation>
    </message>
    <message>
        <source>With a capo on fret %1 it sounds as recorded</source>
        <translation>Mit dem Kapodaster im Bund %1 klingt es wie aufgenommen</translation>
    </message>
    <message>
        <source>It needs no capo: in no other key it has more open chords</source>
        <translation>Ein Kapodaster hilft hier nicht: In keiner anderen Tonart sind mehr Akkorde offen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Remove &amp;Tone</source>
        <translation>&amp;Ton entfernen</translation>
    </message>
    <message>
        <source>&amp;Silence or Sound Tone</source>
        <translation>Ton &amp;stumm oder hörbar</translation>
    </message>
    <message>
        <source>Ctrl+T</source>
        <translation>Ctrl+T</translation>
    </message>
    <message>
        <source>Set Chord &amp;Name ...</source>
        <translation>Akkord be&amp;nennen ...</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Change &amp;Duration</source>
        <translation>&amp;Dauer ändern</translation>
    </message>
    <message>
        <source>Insert Chord &amp;Before</source>
        <translation>Akkord da&amp;vor einfügen</translation>
    </message>
    <message>
        <source>Shift+Ins</source>
        <translation>Shift+Ins</translation>
    </message>
    <message>
        <source>&amp;Insert Chord After</source>
        <translation>Akkord danach &amp;einfügen</translation>
    </message>
    <message>
        <source>Ins</source>
        <translation>Ins</translation>
    </message>
    <message>
        <source>Ctrl+Del</source>
        <translation>Ctrl+Del</translation>
    </message>
    <message>
        <source>Stop playing first, then edit</source>
        <translation>Erst die Wiedergabe anhalten, dann bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Delete C&amp;hord</source>
        <translation>Akkord &amp;löschen</translation>
    </message>
    <message>
        <source>%1 (after: %2)</source>
        <translation>%1 (nach: %2)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; still goes on; end it or wait for its end, then undo</source>
        <translation>„%1“ läuft noch; beende es oder warte das Ende ab, dann rückgängig machen</translation>
    </message>
    <message>
        <source>&amp;Find Chord ...</source>
        <translation>Akkord s&amp;uchen ...</translation>
    </message>
    <message>
        <source>Search &amp;Library ...</source>
        <translation>Bi&amp;bliothek durchsuchen ...</translation>
    </message>
    <message>
        <source>Ctrl+L</source>
        <translation>Ctrl+L</translation>
    </message>
    <message>
        <source>Rena&amp;me in Library</source>
        <translation>In der Bibliothek u&amp;mbenennen</translation>
    </message>
    <message>
        <source>F2</source>
        <translation>F2</translation>
    </message>
    <message>
        <source>Mo&amp;ve Song to Album</source>
        <translation>Son&amp;g in Album verschieben</translation>
    </message>
    <message>
        <source>&amp;Paste Chords</source>
        <translation>Akkorde ein&amp;fügen</translation>
    </message>
    <message>
        <source>Tone to Hi&amp;gher String</source>
        <translation>Ton auf höhere Saite</translation>
    </message>
    <message>
        <source>Alt+Up</source>
        <translation>Alt+Up</translation>
    </message>
    <message>
        <source>Tone to Lo&amp;wer String</source>
        <translation>Ton auf tiefere Saite</translation>
    </message>
    <message>
        <source>Alt+Down</source>
        <translation>Alt+Down</translation>
    </message>
    <message>
        <source>Set Ch&amp;ord ...</source>
        <translation>Akk&amp;ord setzen ...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+M</source>
        <translation>Ctrl+Shift+M</translation>
    </message>
    <message>
        <source>There are no chords to paste; copy some in a tablature, or six lines of one as text</source>
        <translation>Es gibt keine Akkorde zum Einfügen; kopiere welche in einer Tabulatur, oder sechs Zeilen einer Tabulatur als Text</translation>
    </message>
</context>
<context>
    <name>korvel::ui::FileMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Import Recording ...</source>
        <translation>&amp;Aufnahme importieren ...</translation>
    </message>
    <message>
        <source>Import &amp;Recent</source>
        <translation>&amp;Zuletzt importiert</translation>
    </message>
    <message>
        <source>&amp;New Album</source>
        <translation>&amp;Neues Album</translation>
    </message>
    <message>
        <source>&amp;Settings ...</source>
        <translation>E&amp;instellungen ...</translation>
    </message>
    <message>
        <source>Ctrl+,</source>
        <translation>Ctrl+,</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Export Song ...</source>
        <translation>Song &amp;exportieren ...</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>Export as P&amp;DF ...</source>
        <translation>Als &amp;PDF exportieren ...</translation>
    </message>
    <message>
        <source>&amp;Print ...</source>
        <translation>&amp;Drucken ...</translation>
    </message>
    <message>
        <source>Choose a song with chords first</source>
        <translation>Wähle erst einen Song, der Akkorde hat</translation>
    </message>
    <message>
        <source>The printer took nothing; look whether it is switched on</source>
        <translation>Der Drucker hat nichts angenommen; sieh nach, ob er eingeschaltet ist</translation>
    </message>
    <message>
        <source>Export as PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>PDF documents (*.pdf)</source>
        <translation>PDF-Dokumente (*.pdf)</translation>
    </message>
</context>
<context>
    <name>korvel::ui::FindBar</name>
    <message>
        <source>&amp;Chord:</source>
        <translation>&amp;Akkord:</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Vorheriger</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>Nä&amp;chster</translation>
    </message>
    <message>
        <source>Am7</source>
        <translation>Am7</translation>
    </message>
    <message>
        <source>No chord &quot;%1&quot;</source>
        <translation>Kein Akkord „%1“</translation>
    </message>
    <message>
        <source>Chord to find</source>
        <translation>Gesuchter Akkord</translation>
    </message>
</context>
<context>
    <name>korvel::ui::FingerMenu</name>
    <message>
        <source>&amp;Hand Position From Here ...</source>
        <translation>&amp;Handlage ab hier ...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+F</source>
        <translation>Ctrl+Shift+F</translation>
    </message>
    <message>
        <source>The hand is near a fret from this chord on, up to the next one that says so</source>
        <translation>Ab diesem Akkord liegt die Hand an einem Bund, bis zum nächsten, der etwas anderes sagt</translation>
    </message>
    <message>
        <source>Hand &amp;Anywhere From Here</source>
        <translation>Hand ab hier &amp;beliebig</translation>
    </message>
    <message>
        <source>From this chord on the hand is where it is easiest</source>
        <translation>Ab diesem Akkord liegt die Hand, wo es am leichtesten ist</translation>
    </message>
    <message>
        <source>&amp;Forget Hand Position Here</source>
        <translation>Handlage hier &amp;vergessen</translation>
    </message>
    <message>
        <source>What was said of the hand before this chord goes on</source>
        <translation>Es gilt weiter, was vor diesem Akkord von der Hand gesagt war</translation>
    </message>
    <message>
        <source>Another way to hold the notes of this chord; Tab, while chords are selected</source>
        <translation>Die Töne dieses Akkords anders greifen; Tab, solange Akkorde ausgewählt sind</translation>
    </message>
    <message>
        <source>&amp;Next Shape</source>
        <translation>&amp;Nächster Griff</translation>
    </message>
    <message>
        <source>Ctrl+J</source>
        <translation>Ctrl+J</translation>
    </message>
    <message>
        <source>&amp;Previous Shape</source>
        <translation>V&amp;origer Griff</translation>
    </message>
    <message>
        <source>Ctrl+Shift+J</source>
        <translation>Ctrl+Shift+J</translation>
    </message>
    <message>
        <source>What is selected, or the tone at the cursor; around it the rest is fingered anew</source>
        <translation>Was ausgewählt ist, oder der Ton am Cursor; ringsum wird der Fingersatz neu gewählt</translation>
    </message>
    <message>
        <source>To Hi&amp;gher Strings</source>
        <translation>Auf höhere &amp;Saiten</translation>
    </message>
    <message>
        <source>Alt+Shift+Up</source>
        <translation>Alt+Shift+Up</translation>
    </message>
    <message>
        <source>To Lo&amp;wer Strings</source>
        <translation>Auf &amp;tiefere Saiten</translation>
    </message>
    <message>
        <source>Alt+Shift+Down</source>
        <translation>Alt+Shift+Down</translation>
    </message>
    <message>
        <source>Chooses strings for what is selected, or the whole song; what you changed stays</source>
        <translation>Wählt Saiten für das Ausgewählte oder den ganzen Song; was du geändert hast, bleibt</translation>
    </message>
    <message>
        <source>Hand Position</source>
        <translation>Handlage</translation>
    </message>
    <message>
        <source>Fret of the first finger, from this chord on:</source>
        <translation>Bund des Zeigefingers, ab diesem Akkord:</translation>
    </message>
    <message>
        <source>Stop playing first, then edit</source>
        <translation>Erst die Wiedergabe anhalten, dann bearbeiten</translation>
    </message>
    <message>
        <source>Fing&amp;ering</source>
        <translation>F&amp;ingersatz</translation>
    </message>
    <message>
        <source>Finge&amp;r Anew</source>
        <translation>&amp;Fingersatz neu wählen</translation>
    </message>
    <message>
        <source>Other Tuning, Same Sound</source>
        <translation>Andere Stimmung, gleicher Klang</translation>
    </message>
    <message>
        <source>Other Tuning, Same Frets</source>
        <translation>Andere Stimmung, gleiche Bünde</translation>
    </message>
    <message>
        <source>Notes that have no place in this tuning and were left out: %1</source>
        <translation>Töne, die in dieser Stimmung keinen Platz haben und weggelassen wurden: %1</translation>
    </message>
    <message>
        <source>Capo, Same Sound</source>
        <translation>Kapodaster, gleicher Klang</translation>
    </message>
    <message>
        <source>Capo, Same Shapes</source>
        <translation>Kapodaster, gleiche Griffe</translation>
    </message>
    <message>
        <source>Notes that have no place with this capo and were left out: %1</source>
        <translation>Töne, die mit diesem Kapodaster keinen Platz haben und ausgelassen wurden: %1</translation>
    </message>
    <message>
        <source>None</source>
        <comment>a capo</comment>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Fret %1</source>
        <translation>Bund %1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::FretboardView</name>
    <message>
        <source>Fretboard</source>
        <translation>Griffbrett</translation>
    </message>
    <message>
        <source>%1, open: %2</source>
        <translation>%1, leer: %2</translation>
    </message>
    <message>
        <source>%1, fret %2: %3</source>
        <translation>%1, Bund %2: %3</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <comment>a fret, the grip of a chord</comment>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>%1. Next: %2</source>
        <comment>a chord, another one</comment>
        <translation>%1. Danach: %2</translation>
    </message>
</context>
<context>
    <name>korvel::ui::Greeting</name>
    <message>
        <source>Korvel ended while it recorded; the sound is in %1</source>
        <translation>Korvel endete, während es aufnahm; der Ton ist in %1</translation>
    </message>
    <message>
        <source>Korvel ended while it recorded. Make a song of what is in %1?</source>
        <translation>Korvel endete, während es aufnahm. Soll aus dem, was in %1 ist, ein Song werden?</translation>
    </message>
    <message>
        <source>Korvel ended while it imported %1; the song %2 has what was heard until then. Import the file again to have all of it.</source>
        <translation>Korvel wurde beendet, während es %1 importierte; der Song %2 enthält, was bis dahin gehört wurde. Importiere die Datei noch einmal, um alles zu haben.</translation>
    </message>
    <message>
        <source>Korvel ended while it imported %1; import it again.</source>
        <translation>Korvel wurde beendet, während es %1 importierte; importiere die Datei noch einmal.</translation>
    </message>
    <message>
        <source>Keep exported tablature in %1? The settings name another folder.</source>
        <translation>Exportierte Tabulaturen in %1 ablegen? Die Einstellungen ändern das.</translation>
    </message>
    <message>
        <source>%1 cannot be written: songs can be read, played and exported, but not changed. Look at the permissions of the file and its folder, then start Korvel again.</source>
        <translation>%1 kann nicht geschrieben werden: Songs können gelesen, gespielt und exportiert, aber nicht geändert werden. Prüfe die Rechte der Datei und ihres Ordners und starte Korvel neu.</translation>
    </message>
    <message>
        <source>Korvel ended before it had heard %1 note by note. Hear it now?</source>
        <translation>Korvel endete, bevor es %1 Ton für Ton gehört hatte. Jetzt hören?</translation>
    </message>
</context>
<context>
    <name>korvel::ui::GripsDialog</name>
    <message>
        <source>Grips of %1</source>
        <translation>Griffe von %1</translation>
    </message>
    <message>
        <source>Print ...</source>
        <translation>Drucken ...</translation>
    </message>
    <message>
        <source>Export as PDF ...</source>
        <translation>Als PDF exportieren ...</translation>
    </message>
    <message>
        <source>Export as PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>PDF documents (*.pdf)</source>
        <translation>PDF-Dokumente (*.pdf)</translation>
    </message>
    <message>
        <source>Play in the Song</source>
        <translation>Im Song spielen</translation>
    </message>
    <message>
        <source>Play at the Cursor</source>
        <translation>Am Cursor spielen</translation>
    </message>
    <message>
        <source>All places of this chord in the song are played in this grip</source>
        <translation>Überall im Song wird dieser Akkord mit diesem Griff gespielt</translation>
    </message>
    <message>
        <source>The chord at the song&apos;s cursor is played in this grip</source>
        <translation>Der Akkord am Cursor des Songs wird mit diesem Griff gespielt</translation>
    </message>
    <message>
        <source>The arrow keys go to a grip. Enter or a click puts one of the others on the page; on the page&apos;s own it asks for any other one.</source>
        <translation>Die Pfeiltasten gehen zu einem Griff. Enter oder ein Klick setzt einen der anderen auf das Blatt; auf dem des Blatts selbst fragen sie nach irgendeinem anderen.</translation>
    </message>
    <message>
        <source>%1 grips</source>
        <comment>the title of a song</comment>
        <translation>%1 Griffe</translation>
    </message>
</context>
<context>
    <name>korvel::ui::GripsSheet</name>
    <message>
        <source>Grips</source>
        <translation>Griffe</translation>
    </message>
    <message>
        <source>No chord of this song has a name</source>
        <translation>Kein Akkord dieses Songs hat einen Namen</translation>
    </message>
    <message>
        <source>%1: %2, on the page</source>
        <comment>a chord and its frets</comment>
        <translation>%1: %2, auf dem Blatt</translation>
    </message>
    <message>
        <source>%1: %2, other %3 of %4</source>
        <translation>%1: %2, anderer %3 von %4</translation>
    </message>
</context>
<context>
    <name>korvel::ui::GuideDialog</name>
    <message>
        <source>First line of what comes out</source>
        <translation>Erste Zeile von dem, was herauskommt</translation>
    </message>
</context>
<context>
    <name>korvel::ui::HearAgainDialog</name>
    <message>
        <source>Hear Selection Again</source>
        <translation>Auswahl noch einmal hören</translation>
    </message>
    <message>
        <source>&amp;Hear Again</source>
        <translation>&amp;Noch einmal hören</translation>
    </message>
    <message>
        <source>That of the song</source>
        <translation>Die des Songs</translation>
    </message>
    <message>
        <source>How the guitar is tuned there; the song keeps its tuning, and the notes come onto its strings as they sound</source>
        <translation>Wie die Gitarre dort gestimmt ist; der Song behält seine Stimmung, und die Töne kommen so auf seine Saiten, wie sie klingen</translation>
    </message>
    <message>
        <source>&amp;Tuning there</source>
        <translation>S&amp;timmung dort</translation>
    </message>
</context>
<context>
    <name>korvel::ui::HearingChoice</name>
    <message>
        <source>How faint or doubtful a note may be</source>
        <translation>Wie leise oder zweifelhaft ein Ton sein darf</translation>
    </message>
    <message>
        <source>Anywhere</source>
        <translation>Überall</translation>
    </message>
    <message>
        <source>First frets</source>
        <translation>In den ersten Bünden</translation>
    </message>
    <message>
        <source>About fret</source>
        <translation>Um den Bund</translation>
    </message>
    <message>
        <source>Played at</source>
        <translation>Gespielt wird</translation>
    </message>
    <message>
        <source>Fret that the hand stays about</source>
        <translation>Bund, um den die Hand bleibt</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Se&amp;nsitivity</source>
        <translation>E&amp;mpfindlichkeit</translation>
    </message>
    <message>
        <source>&amp;Played at</source>
        <translation>&amp;Gespielt wird</translation>
    </message>
    <message>
        <source>&amp;Frets of the guitar</source>
        <translation>&amp;Bünde der Gitarre</translation>
    </message>
    <message>
        <source>&amp;Capo at fret</source>
        <translation>Ka&amp;podaster im Bund</translation>
    </message>
    <message>
        <source>A recording may lie half a semitone off; more only where you say so</source>
        <translation>Eine Aufnahme darf einen halben Halbton daneben liegen, mehr nur, wenn du es sagst</translation>
    </message>
    <message>
        <source>A is tuned to</source>
        <translation>A ist gestimmt auf</translation>
    </message>
</context>
<context>
    <name>korvel::ui::HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>korvel::ui::InputList</name>
    <message>
        <source>Device to record from</source>
        <translation>Gerät, von dem aufgenommen wird</translation>
    </message>
</context>
<context>
    <name>korvel::ui::JobPanel</name>
    <message>
        <source>Jobs</source>
        <translation>Aufträge</translation>
    </message>
    <message>
        <source>Clear Finished Jobs</source>
        <translation>Fertige Aufträge entfernen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::JobRow</name>
    <message>
        <source>Stop and keep</source>
        <translation>Anhalten und behalten</translation>
    </message>
    <message>
        <source>Cancel and drop</source>
        <translation>Abbrechen und verwerfen</translation>
    </message>
    <message>
        <source>Progress of %1</source>
        <translation>Fortschritt von %1</translation>
    </message>
    <message>
        <source>Ends the job now and keeps what it has made so far</source>
        <translation>Beendet den Auftrag jetzt und behält, was bisher entstanden ist</translation>
    </message>
    <message>
        <source>Ends the job now and removes what it has made</source>
        <translation>Beendet den Auftrag jetzt und entfernt, was entstanden ist</translation>
    </message>
    <message>
        <source>Stop and keep %1</source>
        <translation>%1 anhalten und behalten</translation>
    </message>
    <message>
        <source>Cancel and drop %1</source>
        <translation>%1 abbrechen und verwerfen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::LibraryActions</name>
    <message>
        <source>Import WAV File</source>
        <translation>WAV-Datei importieren</translation>
    </message>
    <message>
        <source>New Album</source>
        <translation>Neues Album</translation>
    </message>
    <message>
        <source>Import Definition File ...</source>
        <translation>Definitionsdatei importieren ...</translation>
    </message>
    <message>
        <source>Clone</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Import Into ...</source>
        <translation>Hierher importieren ...</translation>
    </message>
    <message>
        <source>Export All As</source>
        <translation>Alle exportieren als</translation>
    </message>
    <message>
        <source>Select As Active</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Edit Strings ...</source>
        <translation>Saiten ändern ...</translation>
    </message>
    <message>
        <source>Export Definition File ...</source>
        <translation>Definitionsdatei exportieren ...</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Import Recordings</source>
        <translation>Aufnahmen importieren</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 was not imported: choose another sound file, or convert it to WAV first</source>
        <translation>%1 wurde nicht importiert: Wähle eine andere Tondatei oder wandle sie erst in WAV um</translation>
    </message>
    <message>
        <source>Export Song</source>
        <translation>Song exportieren</translation>
    </message>
    <message>
        <source>Export All Songs Into</source>
        <translation>Alle Songs exportieren nach</translation>
    </message>
    <message>
        <source>Import Instrument</source>
        <translation>Instrument importieren</translation>
    </message>
    <message>
        <source>Instrument definitions (*.xml)</source>
        <translation>Instrument-Definitionen (*.xml)</translation>
    </message>
    <message>
        <source>Export Instrument</source>
        <translation>Instrument exportieren</translation>
    </message>
    <message>
        <source>Sound of the whole song</source>
        <translation>Klang des ganzen Songs</translation>
    </message>
    <message>
        <source>Sound of the loop, chords %1 to %2</source>
        <translation>Klang des Loops, Akkorde %1 bis %2</translation>
    </message>
    <message>
        <source>Calibrate From Recorded Notes ...</source>
        <translation>Aus aufgenommenen Tönen einmessen ...</translation>
    </message>
    <message>
        <source>%1 is not on this computer; save it here, or look where it went</source>
        <translation>%1 ist nicht auf diesem Rechner; speichere es hier, oder sieh nach, wohin es gekommen ist</translation>
    </message>
    <message>
        <source>%1 may not be read; change its permissions or copy it</source>
        <translation>%1 darf nicht gelesen werden; ändere die Rechte daran oder kopiere es</translation>
    </message>
    <message>
        <source>%1 has no sound files; choose another folder</source>
        <translation>%1 hat keine Tondateien; wähle einen anderen Ordner</translation>
    </message>
    <message>
        <source>%1 is there already. Replace it?</source>
        <translation>%1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>PDF document</source>
        <translation>PDF-Dokument</translation>
    </message>
    <message>
        <source>Go On Hearing</source>
        <translation>Weiter hören</translation>
    </message>
    <message>
        <source>Take As Whole</source>
        <translation>Als ganz ansehen</translation>
    </message>
    <message>
        <source>Hear Again</source>
        <translation>Noch einmal hören</translation>
    </message>
    <message>
        <source>Hear Again as One Guitar</source>
        <translation>Noch einmal als eine Gitarre hören</translation>
    </message>
    <message>
        <source>Hear Again as a Band</source>
        <translation>Noch einmal als Band hören</translation>
    </message>
    <message>
        <source>Page of chords</source>
        <translation>Akkordblatt</translation>
    </message>
    <message>
        <source>New from %1</source>
        <translation>Neu aus %1</translation>
    </message>
    <message>
        <source>Reading the recording ...</source>
        <translation>Die Aufnahme wird gelesen ...</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Scalable picture</source>
        <translation>Skalierbares Bild</translation>
    </message>
    <message>
        <source>Hear Again with Melody and Bass</source>
        <translation>Noch einmal mit Melodie und Bass hören</translation>
    </message>
</context>
<context>
    <name>korvel::ui::LogPanel</name>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>What is done is noted here.</source>
        <translation>Hier steht, was getan wurde.</translation>
    </message>
</context>
<context>
    <name>korvel::ui::MainWindow</name>
    <message>
        <source>Workbench ..</source>
        <translation>Werkbank ..</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;Self Check</source>
        <translation>&amp;Selbsttest</translation>
    </message>
    <message>
        <source>index</source>
        <comment>the page of help in the user&apos;s language</comment>
        <translation>index_de</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;Play or Stop</source>
        <translation>&amp;Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Ctrl+Space</source>
        <translation>Ctrl+Space</translation>
    </message>
    <message>
        <source>Set &amp;Loop End Here</source>
        <translation>&amp;Loop-Ende hier setzen</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
    <message>
        <source>&amp;Reset Loop</source>
        <translation>Loop &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Go To</source>
        <translation>Gehe &amp;zu</translation>
    </message>
    <message>
        <source>Drop a recording of a guitar here, or choose File, Import Recording.
To play one yourself, open the Record panel.</source>
        <translation>Ziehe eine Gitarrenaufnahme hierher, oder wähle Datei, Aufnahme importieren.
Um selbst zu spielen, öffne das Feld Aufnehmen.</translation>
    </message>
    <message>
        <source>Playing %1</source>
        <translation>Es spielt: %1</translation>
    </message>
    <message>
        <source>The language changes with the next start, as there is something going on</source>
        <translation>Die Sprache wechselt beim nächsten Start, da gerade etwas läuft</translation>
    </message>
    <message>
        <source>That did not work, and the text says why; press Escape in it or click a song to go on</source>
        <translation>Das ging nicht, und der Text sagt, warum; drücke darin Escape oder klicke auf einen Song, um weiterzuarbeiten</translation>
    </message>
    <message>
        <source>&amp;Begin Loop Here</source>
        <translation>Loop hier &amp;beginnen</translation>
    </message>
    <message>
        <source>[</source>
        <translation>[</translation>
    </message>
    <message>
        <source>&amp;End Loop Here</source>
        <translation>Loop hier be&amp;enden</translation>
    </message>
    <message>
        <source>]</source>
        <translation>]</translation>
    </message>
    <message>
        <source>&amp;Sort Library</source>
        <translation>Bibliothek &amp;sortieren</translation>
    </message>
    <message>
        <source>Loop &amp;Whole Bars</source>
        <translation>&amp;Ganze Takte im Loop</translation>
    </message>
    <message>
        <source>Doubtful: %1</source>
        <translation>Fraglich: %1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::NameDialog</name>
    <message>
        <source>Set Chord Name</source>
        <translation>Akkord benennen</translation>
    </message>
    <message>
        <source>What explains best the notes that sound, and how probable it is</source>
        <translation>Was die klingenden Töne am besten erklärt, und wie wahrscheinlich es ist</translation>
    </message>
    <message>
        <source>&amp;Name, such as F#m7; none takes the name away:</source>
        <translation>&amp;Name, etwa F#m7; keiner nimmt den Namen weg:</translation>
    </message>
    <message>
        <source>&amp;It may be:</source>
        <translation>&amp;Möglich ist:</translation>
    </message>
    <message>
        <source>&amp;Applies to:</source>
        <translation>&amp;Gilt für:</translation>
    </message>
    <message>
        <source>Selected chords</source>
        <translation>Ausgewählte Akkorde</translation>
    </message>
    <message>
        <source>This chord</source>
        <translation>Diesen Akkord</translation>
    </message>
    <message>
        <source>All chords around it with its name</source>
        <translation>Alle Akkorde ringsum mit seinem Namen</translation>
    </message>
    <message>
        <source>All passages with the same notes</source>
        <translation>Alle Stellen mit denselben Tönen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1  (%2 %)</source>
        <translation>%1  (%2 %)</translation>
    </message>
</context>
<context>
    <name>korvel::ui::NeckPainter</name>
    <message>
        <source>no name</source>
        <translation>ohne Namen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Danach</translation>
    </message>
</context>
<context>
    <name>korvel::ui::NotesDialog</name>
    <message>
        <source>Fewer or More Notes in the Selection</source>
        <translation>Weniger oder mehr Töne in der Auswahl</translation>
    </message>
    <message>
        <source>Fewer or More Notes</source>
        <translation>Weniger oder mehr Töne</translation>
    </message>
    <message>
        <source>Fewer notes to the left, more notes to the right</source>
        <translation>Nach links weniger Töne, nach rechts mehr</translation>
    </message>
    <message>
        <source>Fewer notes</source>
        <translation>Weniger Töne</translation>
    </message>
    <message>
        <source>More notes</source>
        <translation>Mehr Töne</translation>
    </message>
</context>
<context>
    <name>korvel::ui::OfferBar</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>korvel::ui::Offers</name>
    <message>
        <source>This recording is already there as %1. Drop the new import, and open that song?</source>
        <translation>Diese Aufnahme gibt es schon als %1. Den neuen Import verwerfen und jenen Song öffnen?</translation>
    </message>
    <message>
        <source>%1 seems to be played in %2. Hear it again in that tuning?</source>
        <translation>%1 scheint in %2 gespielt zu sein. In dieser Stimmung noch einmal hören?</translation>
    </message>
    <message>
        <source>Keep copies of the recordings with the songs, for when their files are moved or deleted? This one takes about %1.</source>
        <translation>Kopien der Aufnahmen bei den Songs behalten, falls ihre Dateien verschoben oder gelöscht werden? Diese braucht etwa %1.</translation>
    </message>
    <message>
        <source>The recording %1 is not there any more, or has changed. Say where it is now?</source>
        <translation>Die Aufnahme %1 ist nicht mehr da oder wurde geändert. Möchtest du zeigen, wo sie jetzt ist?</translation>
    </message>
</context>
<context>
    <name>korvel::ui::PageDesk</name>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Capo</source>
        <translation>Kapodaster</translation>
    </message>
    <message>
        <source>Which Capo? ...</source>
        <translation>Welcher Kapodaster? ...</translation>
    </message>
    <message>
        <source>What a capo at each fret is good for</source>
        <translation>Wozu ein Kapodaster in jedem Bund gut ist</translation>
    </message>
    <message>
        <source>Half tones up or down, to where your voice is at ease</source>
        <translation>Halbtöne nach oben oder unten, dorthin, wo deine Stimme sich wohlfühlt</translation>
    </message>
    <message>
        <source>Key up or down</source>
        <translation>Tonart höher oder tiefer</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>Namen</translation>
    </message>
    <message>
        <source>Numbers: I vi IV V</source>
        <translation>Stufen: I vi IV V</translation>
    </message>
    <message>
        <source>Nashville numbers: 1 6- 4 5</source>
        <translation>Nashville-Zahlen: 1 6- 4 5</translation>
    </message>
    <message>
        <source>Chords as</source>
        <translation>Akkorde als</translation>
    </message>
    <message>
        <source>Type or paste what is sung</source>
        <translation>Tippe oder füge ein, was gesungen wird</translation>
    </message>
    <message>
        <source>Grips ...</source>
        <translation>Griffe ...</translation>
    </message>
    <message>
        <source>All grips of the song, to print and to choose from</source>
        <translation>Alle Griffe des Songs, zum Drucken und Auswählen</translation>
    </message>
    <message>
        <source>Lyrics ...</source>
        <translation>Liedtext ...</translation>
    </message>
</context>
<context>
    <name>korvel::ui::PageSheet</name>
    <message>
        <source>Key: %1</source>
        <translation>Tonart: %1</translation>
    </message>
    <message>
        <source>Capo: %1</source>
        <translation>Kapodaster: %1</translation>
    </message>
    <message>
        <source>Capo: %1 (shapes of %2)</source>
        <translation>Kapodaster: %1 (Griffe von %2)</translation>
    </message>
    <message>
        <source>Moved by %1 half tones</source>
        <translation>Um %1 Halbtöne verschoben</translation>
    </message>
    <message>
        <source>Tempo: %1</source>
        <translation>Tempo: %1</translation>
    </message>
    <message>
        <source>Metre: %1</source>
        <translation>Taktart: %1</translation>
    </message>
    <message>
        <source>as above</source>
        <translation>wie oben</translation>
    </message>
    <message>
        <source>?: another name is as probable</source>
        <translation>?: ein anderer Name ist ebenso wahrscheinlich</translation>
    </message>
</context>
<context>
    <name>korvel::ui::PageView</name>
    <message>
        <source>Page</source>
        <translation>Blatt</translation>
    </message>
    <message>
        <source>A song&apos;s chords to sing from stand here</source>
        <translation>Hier stehen die Akkorde eines Songs zum Mitsingen</translation>
    </message>
    <message>
        <source>No chord of this song has a name</source>
        <translation>Kein Akkord dieses Songs hat einen Namen</translation>
    </message>
    <message>
        <source>Section %1</source>
        <translation>Abschnitt %1</translation>
    </message>
    <message>
        <source>bar %1</source>
        <translation>Takt %1</translation>
    </message>
    <message>
        <source>no chord</source>
        <translation>kein Akkord</translation>
    </message>
    <message>
        <source>sounds as %1</source>
        <translation>klingt als %1</translation>
    </message>
    <message>
        <source>doubtful</source>
        <translation>fraglich</translation>
    </message>
    <message>
        <source>Lyrics of the bar</source>
        <translation>Liedtext des Takts</translation>
    </message>
</context>
<context>
    <name>korvel::ui::Panels</name>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>Roll</source>
        <translation>Notenrolle</translation>
    </message>
    <message>
        <source>Fretboard</source>
        <translation>Griffbrett</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Jobs</source>
        <translation>Aufträge</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Tablature</source>
        <translation>Tabulatur</translation>
    </message>
    <message>
        <source>Practise</source>
        <translation>Üben</translation>
    </message>
</context>
<context>
    <name>korvel::ui::PlayerBar</name>
    <message>
        <source>Player</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Reset Loop</source>
        <translation>Loop zurücksetzen</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Sound ...</source>
        <translation>Klang ...</translation>
    </message>
    <message>
        <source>No loop</source>
        <translation>Kein Loop</translation>
    </message>
    <message>
        <source>Loop %1–%2</source>
        <translation>Loop %1–%2</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Metronome</source>
        <translation>Metronom</translation>
    </message>
    <message>
        <source>Choose a song with chords first</source>
        <translation>Wähle erst einen Song, der Akkorde hat</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Einzählen</translation>
    </message>
    <message>
        <source>Clicks</source>
        <translation>Klicks</translation>
    </message>
    <message>
        <source>A bar of clicks, or four, before what is played</source>
        <translation>Ein Takt Klicks oder vier, bevor es losgeht</translation>
    </message>
    <message>
        <source>Strict tempo</source>
        <translation>Striktes Tempo</translation>
    </message>
    <message>
        <source>Beats a minute</source>
        <translation>Schläge pro Minute</translation>
    </message>
    <message>
        <source>Not faster here and slower there, as the recording went</source>
        <translation>Nicht mal schneller und mal langsamer, wie es die Aufnahme war</translation>
    </message>
    <message>
        <source> of %1</source>
        <comment>beats a minute of so many</comment>
        <translation> von %1</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Recording or guitar</source>
        <translation>Aufnahme oder Gitarre</translation>
    </message>
    <message>
        <source>Left the recording is heard, right the guitar, in the middle both</source>
        <translation>Links ist die Aufnahme zu hören, rechts die Gitarre, in der Mitte beide</translation>
    </message>
    <message>
        <source>Guitar</source>
        <translation>Gitarre</translation>
    </message>
</context>
<context>
    <name>korvel::ui::PracticeControls</name>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Takte</translation>
    </message>
    <message>
        <source>Recording or guitar</source>
        <translation>Aufnahme oder Gitarre</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Guitar</source>
        <translation>Gitarre</translation>
    </message>
    <message>
        <source>Metronome</source>
        <translation>Metronom</translation>
    </message>
    <message>
        <source>Count-in</source>
        <translation>Einzählen</translation>
    </message>
    <message>
        <source>First bar of the loop</source>
        <translation>Erster Takt des Loops</translation>
    </message>
    <message>
        <source>Last bar of the loop</source>
        <translation>Letzter Takt des Loops</translation>
    </message>
    <message>
        <source>Loop These</source>
        <translation>Diese im Loop</translation>
    </message>
</context>
<context>
    <name>korvel::ui::PracticePanel</name>
    <message>
        <source>A loop begins slower and gets faster, up to the speed that is set</source>
        <translation>Ein Loop beginnt langsamer und wird schneller, bis zum eingestellten Tempo</translation>
    </message>
    <message>
        <source>Begins at</source>
        <translation>Beginnt mit</translation>
    </message>
    <message>
        <source>Faster by</source>
        <translation>Schneller um</translation>
    </message>
    <message>
        <source>After so many rounds</source>
        <translation>Nach so vielen Runden</translation>
    </message>
    <message>
        <source>then</source>
        <translation>dann</translation>
    </message>
    <message>
        <source>more after so many rounds</source>
        <translation>mehr nach so vielen Runden</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message>
        <source>A silent bar</source>
        <translation>Ein stiller Takt</translation>
    </message>
    <message>
        <source>A bar of clicks</source>
        <translation>Ein Takt Klicks</translation>
    </message>
    <message>
        <source>Between rounds</source>
        <translation>Zwischen den Runden</translation>
    </message>
    <message>
        <source>Half tones that the recording is transposed by</source>
        <translation>Halbtöne, um die die Aufnahme transponiert wird</translation>
    </message>
    <message>
        <source>half tones</source>
        <translation>Halbtöne</translation>
    </message>
    <message>
        <source>Recording higher by</source>
        <translation>Aufnahme höher um</translation>
    </message>
    <message>
        <source>String %1 is not heard</source>
        <translation>Saite %1 ist nicht zu hören</translation>
    </message>
    <message>
        <source>The guitar leaves out what is played on these strings</source>
        <translation>Die Gitarre lässt aus, was auf diesen Saiten gespielt wird</translation>
    </message>
    <message>
        <source>Practise</source>
        <translation>Üben</translation>
    </message>
    <message>
        <source>Faster and faster</source>
        <translation>Immer schneller</translation>
    </message>
    <message>
        <source>Recording left, guitar right</source>
        <translation>Aufnahme links, Gitarre rechts</translation>
    </message>
    <message>
        <source>Chord and next chord</source>
        <translation>Akkord und nächster Akkord</translation>
    </message>
    <message>
        <source>Melody</source>
        <translation>Melodie</translation>
    </message>
    <message>
        <source>Second voice</source>
        <translation>Zweite Stimme</translation>
    </message>
    <message>
        <source>Third voice</source>
        <translation>Dritte Stimme</translation>
    </message>
    <message>
        <source>Fourth voice</source>
        <translation>Vierte Stimme</translation>
    </message>
    <message>
        <source>Fifth voice</source>
        <translation>Fünfte Stimme</translation>
    </message>
    <message>
        <source>Bass</source>
        <translation>Bass</translation>
    </message>
    <message>
        <source>All but the melody</source>
        <translation>Alles außer der Melodie</translation>
    </message>
    <message>
        <source>Voice that is not heard</source>
        <translation>Stimme, die nicht zu hören ist</translation>
    </message>
    <message>
        <source>The guitar leaves out this voice, from the highest, the melody, to the bass</source>
        <translation>Die Gitarre lässt diese Stimme weg, von der höchsten, der Melodie, bis zum Bass</translation>
    </message>
    <message>
        <source>My part, silent</source>
        <translation>Meine Stimme, stumm</translation>
    </message>
    <message>
        <source>and strings</source>
        <translation>und Saiten</translation>
    </message>
    <message>
        <source>Space plays, ← → go by bars, ↑ ↓ change the speed</source>
        <translation>Leertaste spielt, ← → gehen um Takte, ↑ ↓ ändern das Tempo</translation>
    </message>
    <message>
        <source>Click here to play by keys or a pedal</source>
        <translation>Klicke hier, um mit Tasten oder einem Pedal zu spielen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::PractiseDialog</name>
    <message>
        <source>Practise</source>
        <translation>Üben</translation>
    </message>
    <message>
        <source>&amp;Begin</source>
        <translation>&amp;Anfangen</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Spielen</translation>
    </message>
    <message>
        <source>The whole song</source>
        <translation>Den ganzen Song</translation>
    </message>
    <message>
        <source>A passage, again and again</source>
        <translation>Eine Stelle, immer wieder</translation>
    </message>
    <message>
        <source>&amp;Count-in</source>
        <translation>&amp;Einzählen</translation>
    </message>
    <message>
        <source>&amp;Metronome</source>
        <translation>&amp;Metronom</translation>
    </message>
    <message>
        <source>&amp;From chord</source>
        <translation>&amp;Von Akkord</translation>
    </message>
    <message>
        <source>&amp;To chord</source>
        <translation>&amp;Bis Akkord</translation>
    </message>
    <message>
        <source>&amp;Speed</source>
        <translation>&amp;Tempo</translation>
    </message>
</context>
<context>
    <name>korvel::ui::RecordPanel</name>
    <message>
        <source>; the recording is in %1</source>
        <translation>; die Aufnahme liegt in %1</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>Chords appear here as they are heard.</source>
        <translation>Akkorde erscheinen hier, sobald sie zu hören sind.</translation>
    </message>
    <message>
        <source>Chords heard</source>
        <translation>Gehörte Akkorde</translation>
    </message>
    <message>
        <source>Keep Live Chords</source>
        <translation>Erste Akkorde behalten</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Listening once more, note by note ...</source>
        <translation>Hört noch einmal hin, Ton für Ton ...</translation>
    </message>
    <message>
        <source>The sound device is gone, which ended the recording there</source>
        <translation>Das Tongerät ist weg; dort endet die Aufnahme</translation>
    </message>
    <message>
        <source>Not all is stored: %1</source>
        <translation>Nicht alles ist gespeichert: %1</translation>
    </message>
    <message>
        <source>No tones were heard; nothing was stored</source>
        <translation>Es waren keine Töne zu hören; nichts wurde gespeichert</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
</context>
<context>
    <name>korvel::ui::RecordingMenu</name>
    <message>
        <source>&amp;What Was This?</source>
        <translation>&amp;Was war das?</translation>
    </message>
    <message>
        <source>Ctrl+H</source>
        <translation>Ctrl+H</translation>
    </message>
    <message>
        <source>&amp;Strike This Chord</source>
        <translation>Diesen Akkord an&amp;schlagen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+H</source>
        <translation>Ctrl+Shift+H</translation>
    </message>
    <message>
        <source>&amp;Find Recording ...</source>
        <translation>Aufnahme suchen ...</translation>
    </message>
    <message>
        <source>&amp;Keep with the Song</source>
        <translation>Beim Song behalten</translation>
    </message>
    <message>
        <source>Play the &amp;Recording</source>
        <translation>Die &amp;Aufnahme spielen</translation>
    </message>
    <message>
        <source>Play &amp;Both</source>
        <translation>&amp;Beide spielen</translation>
    </message>
    <message>
        <source>Play the &amp;Guitar</source>
        <translation>Die &amp;Gitarre spielen</translation>
    </message>
    <message>
        <source>Recording &amp;Left, Guitar Right</source>
        <translation>Aufnahme &amp;links, Gitarre rechts</translation>
    </message>
    <message>
        <source>Find Recording</source>
        <translation>Aufnahme suchen</translation>
    </message>
    <message>
        <source>%1 is the recording of the song</source>
        <translation>%1 ist die Aufnahme des Songs</translation>
    </message>
    <message>
        <source>A copy of the recording is kept with the songs</source>
        <translation>Eine Kopie der Aufnahme wird bei den Songs behalten</translation>
    </message>
    <message>
        <source>Re&amp;cording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Hear Clicked Notes</source>
        <translation>Angeklickte Töne hören</translation>
    </message>
    <message>
        <source>Reading the recording ...</source>
        <translation>Die Aufnahme wird gelesen ...</translation>
    </message>
    <message>
        <source>%1 is the recording of the song; others that were lost with it and are there, too: %2</source>
        <translation>%1 ist die Aufnahme des Songs; andere, die mit ihr verloren waren und auch dort sind: %2</translation>
    </message>
    <message>
        <source>Guitar Tuned as the Recording</source>
        <translation>Gitarre gestimmt wie die Aufnahme</translation>
    </message>
    <message>
        <source>Guitar Tuned as the Recording: %1</source>
        <translation>Gitarre gestimmt wie die Aufnahme: %1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::RhythmMenu</name>
    <message>
        <source>&amp;Double Tempo</source>
        <translation>Tempo ver&amp;doppeln</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Up</source>
        <translation>Ctrl+Shift+Up</translation>
    </message>
    <message>
        <source>&amp;Half Tempo</source>
        <translation>Tempo &amp;halbieren</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Down</source>
        <translation>Ctrl+Shift+Down</translation>
    </message>
    <message>
        <source>&amp;Three Beats for Two</source>
        <translation>D&amp;rei Schläge statt zwei</translation>
    </message>
    <message>
        <source>T&amp;wo Beats for Three</source>
        <translation>&amp;Zwei Schläge statt drei</translation>
    </message>
    <message>
        <source>Set T&amp;empo ...</source>
        <translation>T&amp;empo setzen ...</translation>
    </message>
    <message>
        <source>Tap &amp;Along ...</source>
        <translation>&amp;Mitklopfen ...</translation>
    </message>
    <message>
        <source>&amp;Other Readings</source>
        <translation>Andere &amp;Lesarten</translation>
    </message>
    <message>
        <source>&amp;Metre</source>
        <translation>T&amp;aktart</translation>
    </message>
    <message>
        <source>&amp;Bar Line Here</source>
        <translation>&amp;Taktstrich hier</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Bar Lines a Beat Ea&amp;rlier</source>
        <translation>Taktstriche einen Schlag &amp;früher</translation>
    </message>
    <message>
        <source>Bar Lines a Beat &amp;Later</source>
        <translation>Taktstriche einen Schlag &amp;später</translation>
    </message>
    <message>
        <source>Beats Half a Beat Earlier</source>
        <translation>Schläge einen halben Schlag früher</translation>
    </message>
    <message>
        <source>Beats Half a Beat Later</source>
        <translation>Schläge einen halben Schlag später</translation>
    </message>
    <message>
        <source>Beat Here a Little Earlier</source>
        <translation>Schlag hier etwas früher</translation>
    </message>
    <message>
        <source>Beat Here a Little Later</source>
        <translation>Schlag hier etwas später</translation>
    </message>
    <message>
        <source>&amp;Straight Eighths</source>
        <translation>&amp;Gerade Achtel</translation>
    </message>
    <message>
        <source>Sw&amp;ing</source>
        <translation>Sw&amp;ing</translation>
    </message>
    <message>
        <source>Tri&amp;plets</source>
        <translation>Tri&amp;olen</translation>
    </message>
    <message>
        <source>Not Shorter Than Eighths</source>
        <translation>Nicht kürzer als Achtel</translation>
    </message>
    <message>
        <source>Not Shorter Than Sixteenths</source>
        <translation>Nicht kürzer als Sechzehntel</translation>
    </message>
    <message>
        <source>Move Chord Earlier</source>
        <translation>Akkord früher</translation>
    </message>
    <message>
        <source>Alt+Left</source>
        <translation>Alt+Left</translation>
    </message>
    <message>
        <source>Move Chord Later</source>
        <translation>Akkord später</translation>
    </message>
    <message>
        <source>Alt+Right</source>
        <translation>Alt+Right</translation>
    </message>
    <message>
        <source>Lay Into Bars</source>
        <translation>In Takte legen</translation>
    </message>
    <message>
        <source>Lay Into Slices</source>
        <translation>In Abschnitte legen</translation>
    </message>
    <message>
        <source>No song is shown</source>
        <translation>Es wird kein Song gezeigt</translation>
    </message>
    <message>
        <source>Stop playing first, then edit</source>
        <translation>Erst die Wiedergabe anhalten, dann bearbeiten</translation>
    </message>
    <message>
        <source>The store cannot be written</source>
        <translation>In den Speicher kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Set Tempo</source>
        <translation>Tempo setzen</translation>
    </message>
    <message>
        <source>Beats a minute:</source>
        <translation>Schläge pro Minute:</translation>
    </message>
    <message>
        <source>Rh&amp;ythm</source>
        <translation>Rh&amp;ythmus</translation>
    </message>
    <message>
        <source>As It Was Heard</source>
        <translation>Wie gehört</translation>
    </message>
    <message>
        <source>This song does not follow its recording</source>
        <translation>Dieser Song folgt seiner Aufnahme nicht</translation>
    </message>
</context>
<context>
    <name>korvel::ui::RollEdits</name>
    <message>
        <source>Stop playing first, then edit</source>
        <translation>Erst die Wiedergabe anhalten, dann bearbeiten</translation>
    </message>
</context>
<context>
    <name>korvel::ui::RollView</name>
    <message>
        <source>Roll</source>
        <translation>Notenrolle</translation>
    </message>
    <message>
        <source>Chord %1, %2. %3</source>
        <comment>number, time, tones</comment>
        <translation>Akkord %1, %2. %3</translation>
    </message>
    <message>
        <source>%1, not taken for a note, %2 per cent</source>
        <comment>pitch, probability</comment>
        <translation>%1, nicht als Ton übernommen, %2 Prozent</translation>
    </message>
    <message>
        <source>%1, %2, fret %3</source>
        <comment>pitch, string, fret</comment>
        <translation>%1, %2, Bund %3</translation>
    </message>
    <message>
        <source>%1, as you decided</source>
        <comment>a tone</comment>
        <translation>%1, wie du entschieden hast</translation>
    </message>
    <message>
        <source>%1, %2 per cent</source>
        <comment>a tone, its probability</comment>
        <translation>%1, %2 Prozent</translation>
    </message>
</context>
<context>
    <name>korvel::ui::SelfCheckDialog</name>
    <message>
        <source>Self Check</source>
        <translation>Selbsttest</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Results of the self check</source>
        <translation>Ergebnisse des Selbsttests</translation>
    </message>
    <message>
        <source>✓ %1</source>
        <translation>✓ %1</translation>
    </message>
    <message>
        <source>✗ %1</source>
        <translation>✗ %1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::SettingsDialog</name>
    <message>
        <source>Choose ...</source>
        <translation>Wählen ...</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;Allgemein</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Import</translation>
    </message>
    <message>
        <source>&amp;Sound</source>
        <translation>&amp;Klang</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Wie der Desktop</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Tablature in a &amp;font of its own</source>
        <translation>Eigene S&amp;chrift für die Tabulatur</translation>
    </message>
    <message>
        <source>Font of the tablature</source>
        <translation>Schrift der Tabulatur</translation>
    </message>
    <message>
        <source>&amp;Working directory</source>
        <translation>A&amp;rbeitsordner</translation>
    </message>
    <message>
        <source>Working directory</source>
        <translation>Arbeitsordner</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Farbschema</translation>
    </message>
    <message>
        <source>&amp;Detection</source>
        <translation>&amp;Erkennung</translation>
    </message>
    <message>
        <source>One that the system has</source>
        <translation>Einer, den das System hat</translation>
    </message>
    <message>
        <source>&amp;Play on</source>
        <translation>A&amp;bspielen auf</translation>
    </message>
    <message>
        <source>&amp;Record from</source>
        <translation>Auf&amp;nehmen von</translation>
    </message>
    <message>
        <source>Sound&amp;Font</source>
        <translation>Sound&amp;Font</translation>
    </message>
    <message>
        <source>SoundFont</source>
        <translation>SoundFont</translation>
    </message>
    <message>
        <source>SoundFonts (*.sf2 *.sf3)</source>
        <translation>SoundFonts (*.sf2 *.sf3)</translation>
    </message>
    <message>
        <source>Choose: %1</source>
        <translation>Wählen: %1</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>Bars, at the tempo of the recording</source>
        <translation>Takten, im Tempo der Aufnahme</translation>
    </message>
    <message>
        <source>Slices of 0.37 seconds</source>
        <translation>Abschnitten von 0,37 Sekunden</translation>
    </message>
    <message>
        <source>&amp;Written in</source>
        <translation>Ges&amp;chrieben in</translation>
    </message>
    <message>
        <source>&amp;Keep copies of recordings with the songs</source>
        <translation>Kopien von Aufnahmen bei den Songs behalten</translation>
    </message>
    <message>
        <source>One guitar: its notes</source>
        <translation>Eine Gitarre: ihre Töne</translation>
    </message>
    <message>
        <source>A band: its chords</source>
        <translation>Eine Band: ihre Akkorde</translation>
    </message>
    <message>
        <source>Decide for each recording</source>
        <translation>Für jede Aufnahme entscheiden</translation>
    </message>
    <message>
        <source>Chords are written in bars, and heard by the precise detection only</source>
        <translation>Akkorde werden in Takten geschrieben und nur von der genauen Erkennung gehört</translation>
    </message>
    <message>
        <source>What plays</source>
        <translation>Was spielt</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Melody</source>
        <translation>Melodie</translation>
    </message>
    <message>
        <source>Bass</source>
        <translation>Bass</translation>
    </message>
    <message>
        <source>Melody and bass</source>
        <translation>Melodie und Bass</translation>
    </message>
    <message>
        <source>Each becomes a song beside that of the chords, where it is clear enough</source>
        <translation>Jede wird ein eigener Song neben dem der Akkorde, wo sie deutlich genug ist</translation>
    </message>
    <message>
        <source>Voices of a band</source>
        <translation>Stimmen einer Band</translation>
    </message>
</context>
<context>
    <name>korvel::ui::ShapeDialog</name>
    <message>
        <source>Set Chord</source>
        <translation>Akkord setzen</translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation>Griffe</translation>
    </message>
    <message>
        <source>&amp;Chord, such as Am7:</source>
        <translation>&amp;Akkord, etwa Am7:</translation>
    </message>
    <message>
        <source>No hand reaches this chord in this tuning</source>
        <translation>In dieser Stimmung greift keine Hand diesen Akkord</translation>
    </message>
</context>
<context>
    <name>korvel::ui::ShownSong</name>
    <message>
        <source>Stop playing first, then change the loop</source>
        <translation>Erst die Wiedergabe anhalten, dann den Loop ändern</translation>
    </message>
</context>
<context>
    <name>korvel::ui::SingAlongDialog</name>
    <message>
        <source>Sing Along</source>
        <translation>Mitsingen</translation>
    </message>
    <message>
        <source>&amp;Make It</source>
        <translation>&amp;Erstellen</translation>
    </message>
    <message>
        <source>&amp;Chords</source>
        <translation>&amp;Akkorde</translation>
    </message>
    <message>
        <source>Plain: major and minor</source>
        <translation>Schlicht: Dur und Moll</translation>
    </message>
    <message>
        <source>As they are named</source>
        <translation>So, wie sie heißen</translation>
    </message>
    <message>
        <source>&amp;First chord</source>
        <translation>Erster A&amp;kkord</translation>
    </message>
    <message>
        <source>%1, as recorded</source>
        <translation>%1, wie aufgenommen</translation>
    </message>
    <message>
        <source>%1, half tones: %2</source>
        <translation>%1, Halbtöne: %2</translation>
    </message>
</context>
<context>
    <name>korvel::ui::SongGuides</name>
    <message>
        <source>Choose a song with chords first</source>
        <translation>Wähle erst einen Song, der Akkorde hat</translation>
    </message>
    <message>
        <source>&amp;Easy Version ...</source>
        <translation>&amp;Einfache Fassung ...</translation>
    </message>
    <message>
        <source>Simple chords, the melody or bass and melody, at the first frets and in an easy key</source>
        <translation>Einfache Akkorde, die Melodie oder Bass und Melodie, in den ersten Bünden und in einer leichten Tonart</translation>
    </message>
    <message>
        <source>Sing &amp;Along ...</source>
        <translation>&amp;Mitsingen ...</translation>
    </message>
    <message>
        <source>Names of chords and strums, one grip for each chord, in the key of who sings</source>
        <translation>Akkordnamen und Schläge, ein Griff für jeden Akkord, in der Tonart dessen, der singt</translation>
    </message>
    <message>
        <source>&amp;Practise ...</source>
        <translation>Ü&amp;ben ...</translation>
    </message>
    <message>
        <source>Plays the song or a passage, slower and with clicks if you like</source>
        <translation>Spielt den Song oder eine Stelle, auf Wunsch langsamer und mit Klicks</translation>
    </message>
    <message>
        <source>Strum ...</source>
        <translation>Schlagmuster ...</translation>
    </message>
    <message>
        <source>The chords of a song in bars, struck in one of ten patterns</source>
        <translation>Die Akkorde eines Songs in Takten, in einem von zehn Mustern geschlagen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::SongMenu</name>
    <message>
        <source>&amp;Song</source>
        <translation>&amp;Song</translation>
    </message>
</context>
<context>
    <name>korvel::ui::SongSheets</name>
    <message>
        <source>Tablature</source>
        <translation>Tabulatur</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Blatt</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>Ctrl+0</source>
        <translation>Ctrl+0</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
</context>
<context>
    <name>korvel::ui::SoundBackdrop</name>
    <message>
        <source>The recording %1 is not there any more, so that there is no picture of it</source>
        <translation>Die Aufnahme %1 ist nicht mehr da, darum gibt es kein Bild von ihr</translation>
    </message>
    <message>
        <source>The recording %1 has changed since, so that there is no picture of it</source>
        <translation>Die Aufnahme %1 hat sich seitdem geändert, darum gibt es kein Bild von ihr</translation>
    </message>
    <message>
        <source>The recording %1 cannot be read, so that there is no picture of it</source>
        <translation>Die Aufnahme %1 lässt sich nicht lesen, darum gibt es kein Bild von ihr</translation>
    </message>
    <message>
        <source>The chords of this song do not follow its recording, so that there is no picture of it</source>
        <translation>Die Akkorde dieses Songs folgen seiner Aufnahme nicht, deshalb gibt es kein Bild von ihr</translation>
    </message>
    <message>
        <source>Bars were taken out or put in at chord %1, where the song differs from its recording</source>
        <translation>Bei Akkord %1 wurden Takte herausgenommen oder eingefügt, dort weicht der Song von seiner Aufnahme ab</translation>
    </message>
</context>
<context>
    <name>korvel::ui::StrumDialog</name>
    <message>
        <source>Strum</source>
        <translation>Schlagmuster</translation>
    </message>
    <message>
        <source>&amp;Make It</source>
        <translation>&amp;Erstellen</translation>
    </message>
    <message>
        <source>&amp;Pattern</source>
        <translation>&amp;Muster</translation>
    </message>
</context>
<context>
    <name>korvel::ui::TablaturePages</name>
    <message>
        <source>%1 – page %2 of %3</source>
        <translation>%1 – Seite %2 von %3</translation>
    </message>
</context>
<context>
    <name>korvel::ui::TablatureView</name>
    <message>
        <source>Tablature</source>
        <translation>Tabulatur</translation>
    </message>
    <message>
        <source>, loop begins</source>
        <translation>, Loop beginnt</translation>
    </message>
    <message>
        <source>, loop ends</source>
        <translation>, Loop endet</translation>
    </message>
    <message>
        <source>This song has no chords. The key Insert puts in the first one.</source>
        <translation>Dieser Song hat keine Akkorde. Die Taste Einfg fügt den ersten ein.</translation>
    </message>
    <message>
        <source>Click to move the nearer end of the loop here, drag to set both</source>
        <translation>Klicken verschiebt das nähere Ende des Loops hierher, Ziehen setzt beide</translation>
    </message>
    <message>
        <source>, doubtful</source>
        <translation>, fraglich</translation>
    </message>
    <message>
        <source>, doubtful: %1</source>
        <translation>, fraglich: %1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::TapDialog</name>
    <message>
        <source>Tap Along</source>
        <translation>Mitklopfen</translation>
    </message>
    <message>
        <source>&amp;Tap</source>
        <translation>&amp;Klopfen</translation>
    </message>
    <message>
        <source>Press Space, or any letter, on each beat that you hear.</source>
        <translation>Drücke bei jedem Schlag, den du hörst, die Leertaste oder einen Buchstaben.</translation>
    </message>
    <message>
        <source>Nothing of the recording&apos;s time is heard; play the song without strict tempo</source>
        <translation>Von der Zeit der Aufnahme ist nichts zu hören; spiele den Song ohne striktes Tempo</translation>
    </message>
    <message>
        <source>Beats: %1</source>
        <translation>Schläge: %1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::TrackDialog</name>
    <message>
        <source>Import %1</source>
        <translation>%1 importieren</translation>
    </message>
    <message>
        <source>&amp;Track</source>
        <translation>&amp;Spur</translation>
    </message>
    <message>
        <source>As it fits</source>
        <translation>Wie es passt</translation>
    </message>
    <message>
        <source>As written</source>
        <translation>Wie geschrieben</translation>
    </message>
    <message>
        <source>As played</source>
        <translation>Wie gespielt</translation>
    </message>
    <message>
        <source>&amp;Rhythm</source>
        <translation>&amp;Rhythmus</translation>
    </message>
    <message>
        <source>A track for more or fewer strings is fingered for six.</source>
        <translation>Eine Spur für mehr oder weniger Saiten wird für sechs gesetzt.</translation>
    </message>
</context>
<context>
    <name>korvel::ui::TreeModel</name>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message>
        <source>Tunings</source>
        <translation>Stimmungen</translation>
    </message>
    <message>
        <source>Instruments</source>
        <translation>Instrumente</translation>
    </message>
    <message>
        <source>%1, selected</source>
        <translation>%1, ausgewählt</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>%1, playing</source>
        <translation>%1, spielt</translation>
    </message>
    <message>
        <source>%1, not heard to its end</source>
        <translation>%1, nicht zu Ende gehört</translation>
    </message>
    <message>
        <source>%1 (not whole)</source>
        <translation>%1 (nicht ganz)</translation>
    </message>
</context>
<context>
    <name>korvel::ui::TreePanel</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search in albums, songs, tunings and instruments</source>
        <translation>In Alben, Songs, Stimmungen und Instrumenten suchen</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>As &amp;Stored</source>
        <translation>Wie &amp;gespeichert</translation>
    </message>
    <message>
        <source>By &amp;Title</source>
        <translation>Nach &amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Newest First</source>
        <translation>&amp;Neueste zuerst</translation>
    </message>
    <message>
        <source>By &amp;Length</source>
        <translation>Nach &amp;Länge</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>korvel::ui::TuningDialog</name>
    <message>
        <source>Strings of %1</source>
        <translation>Saiten von %1</translation>
    </message>
    <message>
        <source>String &amp;%1</source>
        <translation>Saite &amp;%1</translation>
    </message>
</context>
<context>
    <name>korvel::ui::WordsDialog</name>
    <message>
        <source>Lyrics</source>
        <translation>Liedtext</translation>
    </message>
    <message>
        <source>Lyrics of the song</source>
        <translation>Liedtext des Songs</translation>
    </message>
    <message>
        <source>A line of lyrics for each line of the page, which has four bars. “|” goes on to the next bar, alone in a line it leaves a line of the page out, and “9:” begins at bar 9.</source>
        <translation>Eine Zeile Liedtext für jede Zeile des Blatts, die vier Takte hat. „|“ geht zum nächsten Takt weiter, allein in einer Zeile lässt es eine Zeile des Blatts aus, und „9:“ beginnt bei Takt 9.</translation>
    </message>
</context>
</TS>
