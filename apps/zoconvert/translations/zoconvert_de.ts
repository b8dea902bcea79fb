<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>zoconvert</name>
    <message>
        <source>A command is missing. zoconvert -h lists them.</source>
        <translation>Ein Befehl fehlt. zoconvert -h zählt sie auf.</translation>
    </message>
    <message>
        <source>There is no command %1. zoconvert -h lists them.| Did you mean %2?</source>
        <translation>Es gibt keinen Befehl %1. zoconvert -h zählt sie auf.| Meinten Sie %2?</translation>
    </message>
    <message>
        <source>A command comes before %1. Did you mean: zoconvert %2 %3</source>
        <translation>Vor %1 kommt ein Befehl. Meinten Sie: zoconvert %2 %3</translation>
    </message>
    <message>
        <source>%1 stands before the command. The command comes first.</source>
        <translation>%1 steht vor dem Befehl. Der Befehl kommt zuerst.</translation>
    </message>
    <message>
        <source>%1 cannot %2. It can: %3.| Did you mean %4?</source>
        <translation>%1 kann %2 nicht. Es kann: %3.| Meinten Sie %4?</translation>
    </message>
    <message>
        <source>%1 takes no option %2.| Did you mean %3?</source>
        <translation>%1 nimmt keine Option %2.| Meinten Sie %3?</translation>
    </message>
    <message>
        <source>%1 takes a value: %2.</source>
        <translation>%1 nimmt einen Wert: %2.</translation>
    </message>
    <message>
        <source>%1 takes no value.</source>
        <translation>%1 nimmt keinen Wert.</translation>
    </message>
    <message>
        <source>Something is missing. Usage: zoconvert %1</source>
        <translation>Etwas fehlt. Aufruf: zoconvert %1</translation>
    </message>
    <message>
        <source>%1 is one word too many. Usage: zoconvert %2</source>
        <translation>%1 ist ein Wort zu viel. Aufruf: zoconvert %2</translation>
    </message>
    <message>
        <source>A name is empty. Check the variable or the quotes that it comes from.</source>
        <translation>Ein Name ist leer. Prüfen Sie die Variable oder die Anführungszeichen, aus denen er kommt.</translation>
    </message>
    <message>
        <source>%1 needs %2.</source>
        <translation>%1 braucht %2.</translation>
    </message>
    <message>
        <source>This name is not in UTF-8. Rename the file.</source>
        <translation>Dieser Name ist nicht in UTF-8. Benennen Sie die Datei um.</translation>
    </message>
    <message>
        <source>%1 is not in UTF-8.</source>
        <translation>%1 ist nicht in UTF-8.</translation>
    </message>
    <message>
        <source>There is a preset %1 already. Choose another name, or add --overwrite.</source>
        <translation>Es gibt schon eine Vorlage %1. Wählen Sie einen anderen Namen oder fügen Sie --overwrite hinzu.</translation>
    </message>
    <message>
        <source>%1 exists. Choose another name, or add --overwrite.</source>
        <translation>%1 gibt es schon. Wählen Sie einen anderen Namen oder fügen Sie --overwrite hinzu.</translation>
    </message>
    <message>
        <source>%1 is no folder, and several inputs need one.</source>
        <translation>%1 ist kein Ordner, und mehrere Eingaben brauchen einen.</translation>
    </message>
    <message>
        <source>%2 and %3 would both be written to %1.</source>
        <translation>%2 und %3 würden beide nach %1 geschrieben.</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>Warnung: %1</translation>
    </message>
    <message>
        <source>%1: there is no watermark to place. Name one before, with --text or --image.</source>
        <translation>%1: es gibt kein Wasserzeichen. Nennen Sie vorher eines mit --text oder --image.</translation>
    </message>
    <message>
        <source>--crop: %1 is not X,Y,W,H in pixels or percent, for example 10%,0,80%,100%.</source>
        <translation>--crop: %1 ist nicht X,Y,W,H in Pixeln oder Prozent, zum Beispiel 10%,0,80%,100%.</translation>
    </message>
    <message>
        <source>--crop: %1 leaves the frame of %2x%3.</source>
        <translation>--crop: %1 verlässt das Bild von %2x%3.</translation>
    </message>
    <message>
        <source>--crop: %1 is smaller than %2x%3.</source>
        <translation>--crop: %1 ist kleiner als %2x%3.</translation>
    </message>
    <message>
        <source>--set: %1 is not ADDRESS=VALUE, for example Color:bcs_contrast=20.</source>
        <translation>--set: %1 ist nicht ADRESSE=WERT, zum Beispiel Color:bcs_contrast=20.</translation>
    </message>
    <message>
        <source>--time: %1 is no number of seconds, for example 12.5.</source>
        <translation>--time: %1 ist keine Zahl von Sekunden, zum Beispiel 12.5.</translation>
    </message>
    <message>
        <source>The clip ends at %2 s. Shown is its last frame, not one of %1 s.</source>
        <translation>Der Clip endet bei %2 s. Gezeigt wird sein letztes Bild, keines von %1 s.</translation>
    </message>
    <message>
        <source>Which moment is shown, in seconds from the clip's beginning.</source>
        <translation>Welcher Augenblick gezeigt wird, in Sekunden vom Anfang des Clips an.</translation>
    </message>
    <message>
        <source>Writes one frame as pictures: as it is, and as it comes out.</source>
        <translation>Schreibt ein Einzelbild als Bilder: wie es ist, und wie es herauskommt.</translation>
    </message>
    <message>
        <source>before.png is the frame as it is, after.png the one that the encoder gets, preview.png shows what is cut off and the watermarks, watermark.png these alone. Pictures of these names are replaced.</source>
        <translation>before.png ist das Einzelbild, wie es ist, after.png das, was der Encoder bekommt, preview.png zeigt, was abgeschnitten wird, und die Wasserzeichen, watermark.png diese allein. Bilder dieser Namen werden ersetzt.</translation>
    </message>
    <message>
        <source>They go to the current folder without --output. Without --time it is a frame some way into the clip.</source>
        <translation>Ohne --output kommen sie in den aktuellen Ordner. Ohne --time ist es ein Bild ein Stück im Clip.</translation>
    </message>
    <message>
        <source>--place: %1 is not [POS:]CORNER[:MARGIN], for example bottom-right:2%.</source>
        <translation>--place: %1 ist nicht [POS:]ECKE[:RAND], zum Beispiel bottom-right:2%.</translation>
    </message>
    <message>
        <source>%1: the settings do not say how large the picture is.</source>
        <translation>%1: die Einstellungen sagen nicht, wie groß das Bild ist.</translation>
    </message>
    <message>
        <source>%1 is no image that can be shown: %2.</source>
        <translation>%1 ist kein Bild, das gezeigt werden kann: %2.</translation>
    </message>
    <message>
        <source>An apply was killed before it was done. This file has the new settings.</source>
        <translation>Ein apply wurde abgebrochen, bevor es fertig war. Diese Datei hat die neuen Einstellungen.</translation>
    </message>
    <message>
        <source>An apply was killed before it was done. This file has its old settings.</source>
        <translation>Ein apply wurde abgebrochen, bevor es fertig war. Diese Datei hat ihre alten Einstellungen.</translation>
    </message>
    <message>
        <source>An apply was killed before it was done. This file was changed or removed since.</source>
        <translation>Ein apply wurde abgebrochen, bevor es fertig war. Diese Datei wurde seitdem geändert oder entfernt.</translation>
    </message>
    <message>
        <source>%1 is the number of no event. zoconvert explain lists them.</source>
        <translation>%1 ist die Nummer keines Ereignisses. zoconvert explain zählt sie auf.</translation>
    </message>
    <message>
        <source>There is no entry of the diagnostic log in it.</source>
        <translation>Darin steht kein Eintrag des Diagnoseprotokolls.</translation>
    </message>
    <message>
        <source>No default of %1 is saved.</source>
        <translation>Von %1 ist keine Vorgabe gespeichert.</translation>
    </message>
    <message>
        <source>A default is saved of an effect type or an item, and %1 is neither. Write for example Color or Watermark:0.</source>
        <translation>Eine Vorgabe wird von einem Effekttyp oder einem Element gespeichert, und %1 ist keins von beiden. Schreiben Sie zum Beispiel Color oder Watermark:0.</translation>
    </message>
    <message>
        <source>Nothing is set: all values are the built-in defaults. Add --all to see them.</source>
        <translation>Nichts ist eingestellt: Alle Werte sind die eingebauten Vorgaben. --all zeigt sie.</translation>
    </message>
    <message>
        <source>What was asked for cannot be written to standard output.</source>
        <translation>Was verlangt war, lässt sich nicht auf die Standardausgabe schreiben.</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Edits</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Output options</source>
        <translation>Ausgabeoptionen</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Beispiele</translation>
    </message>
    <message>
        <source>Addresses</source>
        <translation>Adressen</translation>
    </message>
    <message>
        <source>Exit codes</source>
        <translation>Rückgabewerte</translation>
    </message>
    <message>
        <source>Environment variables</source>
        <translation>Umgebungsvariablen</translation>
    </message>
    <message>
        <source>Files it keeps</source>
        <translation>Dateien, die es behält</translation>
    </message>
    <message>
        <source>Example: %1</source>
        <translation>Beispiel: %1</translation>
    </message>
    <message>
        <source>zoconvert COMMAND -h tells more of a command, and --help tells all, with examples.</source>
        <translation>zoconvert BEFEHL -h sagt mehr über einen Befehl, und --help alles, mit Beispielen.</translation>
    </message>
    <message>
        <source>zoconvert %1 --help tells all, with examples.</source>
        <translation>zoconvert %1 --help sagt alles, mit Beispielen.</translation>
    </message>
    <message>
        <source>Sets what happens to films: crop, watermarks, subtitles, colours, frame effects and sound.</source>
        <translation>Legt fest, was mit Filmen geschieht: Zuschnitt, Wasserzeichen, Untertitel, Farben, Bildeffekte und Ton.</translation>
    </message>
    <message>
        <source>They act in the order of the command line. One that takes a value takes exactly one.</source>
        <translation>Sie wirken in der Reihenfolge der Befehlszeile. Wo ein Wert stehen kann, steht genau einer.</translation>
    </message>
    <message>
        <source>They go before what a settings file says under "output".</source>
        <translation>Sie gehen dem vor, was eine Einstellungsdatei unter "output" sagt.</translation>
    </message>
    <message>
        <source>TYPE:KEY is a type's own property, TYPE:POS:KEY an item's, counted from 0, Output:OPTION an output option, Tracks:KEY a rule for tracks. The key "selected" says whether a type or item takes part.</source>
        <translation>TYP:SCHLÜSSEL ist eine Eigenschaft eines Typs, TYP:POS:SCHLÜSSEL die eines Elements, gezählt ab 0, Output:OPTION eine Ausgabeoption, Tracks:SCHLÜSSEL eine Regel für Spuren. Der Schlüssel "selected" sagt, ob ein Typ oder Element mitwirkt.</translation>
    </message>
    <message>
        <source>0: all done, or skipped. 1: the only file, or all files, failed. 2: wrong usage, nothing was begun. 3: some failed, some did not. work: 75 when all that failed may be tried again, 76 when a program or a needed file is missing. 130 and 143: ended by a signal. diff: 0 for equal, 1 for different, 2 for trouble.</source>
        <translation>0: alles getan oder ausgelassen. 1: die einzige Datei oder alle misslangen. 2: falscher Aufruf, nichts wurde begonnen. 3: manche misslangen, manche nicht. work: 75, wenn sich alles Gescheiterte noch einmal versuchen lässt, 76, wenn ein Programm oder eine nötige Datei fehlt. 130 und 143: durch ein Signal beendet. diff: 0 für gleich, 1 für verschieden, 2 für Fehler.</translation>
    </message>
    <message>
        <source>ZOEFFECT_FFMPEG: the folder of ffmpeg and ffprobe, which are looked for in PATH without it. NO_COLOR: messages have no colours. LC_ALL, LC_MESSAGES, LANG: German where they ask for it, else English.</source>
        <translation>ZOEFFECT_FFMPEG: der Ordner von ffmpeg und ffprobe, die sonst in PATH gesucht werden. NO_COLOR: Meldungen haben keine Farben. LC_ALL, LC_MESSAGES, LANG: Deutsch, wo sie es verlangen, sonst Englisch.</translation>
    </message>
    <message>
        <source>In the folder of the user's configuration: zoeffect/presets holds the presets, zoeffect/effectdefaults.json the saved defaults.</source>
        <translation>Im Ordner der Konfiguration: zoeffect/presets hält die Vorlagen, zoeffect/effectdefaults.json die gespeicherten Vorgaben.</translation>
    </message>
    <message>
        <source>Takes all settings of FILE, for this clip.</source>
        <translation>Nimmt alle Einstellungen von FILE für diesen Clip.</translation>
    </message>
    <message>
        <source>Carries over what a preset holds. A FILE has a slash or ends in .json.</source>
        <translation>Überträgt, was eine Vorlage hält. Eine Datei hat einen Schrägstrich oder endet auf .json.</translation>
    </message>
    <message>
        <source>Sets one value: TYPE:KEY, TYPE:POS:KEY for an item, Output:OPTION. What is set becomes selected.</source>
        <translation>Setzt einen Wert: TYPE:KEY, TYPE:POS:KEY für ein Element, Output:OPTION. Was gesetzt wird, wird ausgewählt.</translation>
    </message>
    <message>
        <source>Adds a text watermark.</source>
        <translation>Fügt ein Textwasserzeichen hinzu.</translation>
    </message>
    <message>
        <source>Adds an image watermark.</source>
        <translation>Fügt ein Bildwasserzeichen hinzu.</translation>
    </message>
    <message>
        <source>Cuts a rectangle out, in pixels or percent of the frame.</source>
        <translation>Schneidet ein Rechteck aus, in Pixeln oder Prozent des Bildes.</translation>
    </message>
    <message>
        <source>Adds a subtitle file.</source>
        <translation>Fügt eine Untertiteldatei hinzu.</translation>
    </message>
    <message>
        <source>Adds a sound file.</source>
        <translation>Fügt eine Tondatei hinzu.</translation>
    </message>
    <message>
        <source>Chooses audio tracks by the stream numbers of the probe.</source>
        <translation>Wählt Tonspuren nach den Nummern von probe.</translation>
    </message>
    <message>
        <source>Chooses a subtitle track by its stream number, or none.</source>
        <translation>Wählt eine Untertitelspur nach ihrer Nummer, oder keine.</translation>
    </message>
    <message>
        <source>Chooses the audio tracks of the first language that is there.</source>
        <translation>Wählt die Tonspuren der ersten Sprache, die es gibt.</translation>
    </message>
    <message>
        <source>Chooses a subtitle track of the first language that is there.</source>
        <translation>Wählt eine Untertitelspur der ersten Sprache, die es gibt.</translation>
    </message>
    <message>
        <source>Chooses a forced subtitle track where there is one.</source>
        <translation>Wählt eine erzwungene Untertitelspur, wo es eine gibt.</translation>
    </message>
    <message>
        <source>Subtitle files of the clip's name beside it count as tracks.</source>
        <translation>Untertiteldateien mit dem Namen des Clips daneben zählen als Spuren.</translation>
    </message>
    <message>
        <source>Holds a watermark in a corner, the one named last when POS is not given; the margin in pixels or percent.</source>
        <translation>Hält ein Wasserzeichen in einer Ecke, ohne POS das zuletzt genannte; der Rand in Pixeln oder Prozent.</translation>
    </message>
    <message>
        <source>Goes back to the defaults.</source>
        <translation>Geht zurück zu den Vorgaben.</translation>
    </message>
    <message>
        <source>Also what is at its default.</source>
        <translation>Auch, was auf seiner Vorgabe steht.</translation>
    </message>
    <message>
        <source>Prints JSON.</source>
        <translation>Gibt JSON aus.</translation>
    </message>
    <message>
        <source>What is carried over: types, items or single values, with commas between them; Output and Tracks are types, too.</source>
        <translation>Was übertragen wird: Typen, Elemente oder einzelne Werte, mit Kommas dazwischen; auch Output und Tracks sind Typen.</translation>
    </message>
    <message>
        <source>Adds items instead of replacing the list.</source>
        <translation>Fügt Elemente hinzu, statt die Liste zu ersetzen.</translation>
    </message>
    <message>
        <source>Where to write.</source>
        <translation>Wohin geschrieben wird.</translation>
    </message>
    <message>
        <source>Writes settings files; to the screen without --output.</source>
        <translation>Schreibt Einstellungsdateien; ohne --output auf den Bildschirm.</translation>
    </message>
    <message>
        <source>Those of a clip begin with the saved defaults; a settings file among the inputs is changed by the edits.</source>
        <translation>Die eines Clips beginnen mit den gespeicherten Vorgaben; eine Einstellungsdatei unter den Eingaben wird durch die Änderungen verändert.</translation>
    </message>
    <message>
        <source>Shows what is set, beside saved default and catalogue default.</source>
        <translation>Zeigt, was gesetzt ist, neben gespeicherter Vorgabe und Vorgabe des Katalogs.</translation>
    </message>
    <message>
        <source>Shows what differs between two settings files or presets.</source>
        <translation>Zeigt, was sich zwischen zwei Einstellungsdateien oder Vorlagen unterscheidet.</translation>
    </message>
    <message>
        <source>It ends 0 when they are equal, 1 when they differ, 2 when one cannot be read.</source>
        <translation>Es endet mit 0, wenn sie gleich sind, mit 1, wenn sie sich unterscheiden, mit 2, wenn eine nicht zu lesen ist.</translation>
    </message>
    <message>
        <source>Carries settings of one file to others: to all of them, or to none.</source>
        <translation>Überträgt Einstellungen einer Datei auf andere: auf alle oder auf keine.</translation>
    </message>
    <message>
        <source>Watermarks are rescaled to the frame of each target, and a crop is the same part of the picture.</source>
        <translation>Wasserzeichen werden auf das Bild jedes Ziels umgerechnet, und ein Zuschnitt ist derselbe Teil des Bildes.</translation>
    </message>
    <message>
        <source>Shows what media files consist of.</source>
        <translation>Zeigt, woraus Mediendateien bestehen.</translation>
    </message>
    <message>
        <source>A folder stands for the media files in it.</source>
        <translation>Ein Ordner steht für die Mediendateien darin.</translation>
    </message>
    <message>
        <source>A settings file stands for its clip, a folder for the media files in it.</source>
        <translation>Eine Einstellungsdatei steht für ihren Clip, ein Ordner für die Mediendateien darin.</translation>
    </message>
    <message>
        <source>The stream numbers are those that --audio-tracks and --subtitle-track take.</source>
        <translation>Die Nummern der Spuren sind die, die --audio-tracks und --subtitle-track nehmen.</translation>
    </message>
    <message>
        <source>Keeps settings under names, for any clip.</source>
        <translation>Hält Einstellungen unter Namen, für jeden Clip.</translation>
    </message>
    <message>
        <source>Keeps what a new file or item begins with.</source>
        <translation>Hält fest, womit eine neue Datei oder ein neues Element beginnt.</translation>
    </message>
    <message>
        <source>A saved default acts when a clip is added or something is reset, and changes no file that is there.</source>
        <translation>Eine gespeicherte Vorgabe wirkt, wenn ein Clip hinzukommt oder etwas zurückgesetzt wird, und ändert keine vorhandene Datei.</translation>
    </message>
    <message>
        <source>Prints a JSON Schema, draft 2020-12.</source>
        <translation>Gibt ein JSON-Schema aus, Entwurf 2020-12.</translation>
    </message>
    <message>
        <source>Says what the entries of the diagnostic log mean.</source>
        <translation>Sagt, was die Einträge des Diagnoseprotokolls bedeuten.</translation>
    </message>
    <message>
        <source>Without a word it lists all of them.</source>
        <translation>Ohne ein Wort zählt es alle auf.</translation>
    </message>
    <message>
        <source>A summary with -h; all of it, with examples, with --help.</source>
        <translation>Eine Übersicht mit -h; alles, mit Beispielen, mit --help.</translation>
    </message>
    <message>
        <source>It names no clip. Give the clip, and this file by --settings.</source>
        <translation>Sie nennt keinen Clip. Geben Sie den Clip an und diese Datei mit --settings.</translation>
    </message>
    <message>
        <source>The new rules choose no track, since the clip cannot be looked into. Bring it back, and give them again. %1</source>
        <translation>Die neuen Regeln wählen keine Spur, da der Clip nicht gelesen werden kann. Holen Sie ihn zurück und geben Sie sie noch einmal an. %1</translation>
    </message>
    <message>
        <source>There is no media file in it.| Add %1 to look below it.</source>
        <translation>Darin liegt keine Mediendatei.| Mit %1 wird auch in seinen Ordnern gesucht.</translation>
    </message>
    <message>
        <source>--output: %1 is for one input, and there are %2. Use --output-folder.</source>
        <translation>--output: %1 ist für eine Eingabe, und es gibt %2. Nehmen Sie --output-folder.</translation>
    </message>
    <message>
        <source>%1 is not one file. Name a file.</source>
        <translation>%1 ist nicht eine Datei. Nennen Sie eine.</translation>
    </message>
    <message>
        <source>%1: the ending names no container. End it in .mp4, .mkv, .webm or .mov, or add --container.</source>
        <translation>%1: Die Endung nennt keinen Container. Nehmen Sie .mp4, .mkv, .webm oder .mov, oder ergänzen Sie --container.</translation>
    </message>
    <message>
        <source>%1: the ending does not agree with --container %2. Leave out one of the two.</source>
        <translation>%1: Die Endung passt nicht zu --container %2. Lassen Sie eines von beiden weg.</translation>
    </message>
    <message>
        <source>%1 and %2 cannot both be given. Leave out one of the two.</source>
        <translation>%1 und %2 gehen nicht zusammen. Lassen Sie eines von beiden weg.</translation>
    </message>
    <message>
        <source>--name: %1 has a slash. Use --output-folder for the folder.</source>
        <translation>--name: %1 enthält einen Schrägstrich. Nehmen Sie --output-folder für den Ordner.</translation>
    </message>
    <message>
        <source>--name: %1 is no word of a pattern. There are {name}, {ending} and {number}.</source>
        <translation>--name: %1 ist kein Wort eines Musters. Es gibt {name}, {ending} und {number}.</translation>
    </message>
    <message>
        <source>%1 exists; left out.</source>
        <translation>%1 gibt es schon; ausgelassen.</translation>
    </message>
    <message>
        <source>Not begun.</source>
        <translation>Nicht begonnen.</translation>
    </message>
    <message>
        <source>done: %1</source>
        <translation>fertig: %1</translation>
    </message>
    <message>
        <source>would become %1</source>
        <translation>würde zu %1</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>The lines name helper files that are gone already. Add --files FOLDER to run them.</source>
        <translation>Die Zeilen nennen Hilfsdateien, die schon weg sind. Mit --files ORDNER lassen sie sich ausführen.</translation>
    </message>
    <message>
        <source>%1: line %2 is no job. Write the plan anew.| %3</source>
        <translation>%1: Zeile %2 ist kein Auftrag. Schreiben Sie den Plan neu.| %3</translation>
    </message>
    <message>
        <source>There is no job %1. The plan has %2.</source>
        <translation>Es gibt keinen Auftrag %1. Der Plan hat %2.</translation>
    </message>
    <message>
        <source>%1 is no longer as it was when the plan was written. Write the plan anew.</source>
        <translation>%1 ist nicht mehr wie beim Schreiben des Plans. Schreiben Sie den Plan neu.</translation>
    </message>
    <message>
        <source>The font %1 is missing; %2 would be taken. Install it.</source>
        <translation>Die Schrift %1 fehlt; genommen würde %2. Installieren Sie sie.</translation>
    </message>
    <message>
        <source>%1 cannot be written; --report will not tell of this run.</source>
        <translation>%1 lässt sich nicht schreiben; --report weiß nichts von diesem Lauf.</translation>
    </message>
    <message>
        <source>Converts files.</source>
        <translation>Wandelt Dateien um.</translation>
    </message>
    <message>
        <source>An input is a media file, a settings file, which names its clip, or a folder. Without --output and --output-folder each result lies beside its input.</source>
        <translation>Eine Eingabe ist eine Mediendatei, eine Einstellungsdatei, die ihren Clip nennt, oder ein Ordner. Ohne --output und --output-folder liegt jedes Ergebnis neben seiner Eingabe.</translation>
    </message>
    <message>
        <source>What no setting touches is copied as it is. A result gets its name only when it is whole; what is there is never replaced unasked.</source>
        <translation>Was keine Einstellung berührt, wird kopiert, wie es ist. Ein Ergebnis bekommt seinen Namen erst, wenn es ganz ist; Vorhandenes wird nie ungefragt ersetzt.</translation>
    </message>
    <message>
        <source>Prints what convert would run, a line a step.</source>
        <translation>Gibt aus, was convert ausführen würde, je Schritt eine Zeile.</translation>
    </message>
    <message>
        <source>The lines are for a POSIX shell. With --files they run as they are.</source>
        <translation>Die Zeilen sind für eine POSIX-Shell. Mit --files laufen sie, wie sie sind.</translation>
    </message>
    <message>
        <source>Writes jobs for work, one a line.</source>
        <translation>Schreibt Aufträge für work, je einen pro Zeile.</translation>
    </message>
    <message>
        <source>A job holds all that it takes, and names the images, subtitles, sounds and fonts that have to be as they were.</source>
        <translation>Ein Auftrag enthält alles Nötige und nennt die Bilder, Untertitel, Töne und Schriften, die noch so sein müssen wie zuvor.</translation>
    </message>
    <message>
        <source>Does the jobs of a plan: those of these numbers, or all.</source>
        <translation>Erledigt die Aufträge eines Plans: die mit diesen Nummern oder alle.</translation>
    </message>
    <message>
        <source>A job whose result is there is left out, so that several runs can share a plan. What became of the jobs is kept in PLAN.results.</source>
        <translation>Ein Auftrag, dessen Ergebnis da ist, entfällt; so können sich mehrere Läufe einen Plan teilen. Was aus den Aufträgen wurde, steht in PLAN.results.</translation>
    </message>
    <message>
        <source>It ends 75 when all that failed may be tried again, 76 when a program or a needed file is missing.</source>
        <translation>Es endet mit 75, wenn sich alles Gescheiterte noch einmal versuchen lässt, mit 76, wenn ein Programm oder eine nötige Datei fehlt.</translation>
    </message>
    <message>
        <source>Also what is in the folders of a folder.</source>
        <translation>Auch was in den Ordnern eines Ordners liegt.</translation>
    </message>
    <message>
        <source>Where the files lie that the commands need beside the clip.</source>
        <translation>Wo die Dateien liegen, die die Befehle außer dem Clip brauchen.</translation>
    </message>
    <message>
        <source>The file to write.</source>
        <translation>Die Datei, die geschrieben wird.</translation>
    </message>
    <message>
        <source>Does nothing, and prints what became of each job.</source>
        <translation>Tut nichts und gibt aus, was aus jedem Auftrag wurde.</translation>
    </message>
</context>
</TS>
