<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>zokit</name>
    <message>
        <source>Output file</source>
        <translation>Ausgabedatei</translation>
    </message>
    <message>
        <source>Where the result goes; its ending says the container. For one input.</source>
        <translation>Wohin das Ergebnis kommt; die Endung nennt den Container. Für eine einzige Eingabe.</translation>
    </message>
    <message>
        <source>Output folder</source>
        <translation>Ausgabeordner</translation>
    </message>
    <message>
        <source>Where the results go; without it each lies beside its input.</source>
        <translation>Wohin die Ergebnisse kommen; ohne Angabe liegt jedes neben seiner Eingabe.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Of each result: {name} of the input, {number} from 1, {ending} of the container. {name}-converted.{ending} when not given.</source>
        <translation>Jedes Ergebnisses: {name} der Eingabe, {number} ab 1, {ending} des Containers. Ohne Angabe {name}-converted.{ending}.</translation>
    </message>
    <message>
        <source>Existing files</source>
        <translation>Vorhandene Dateien</translation>
    </message>
    <message>
        <source>What happens when the result is there already: nothing is begun, the input is left out, or the file is replaced.</source>
        <translation>Was geschieht, wenn das Ergebnis schon da ist: nichts wird begonnen, die Eingabe wird ausgelassen oder die Datei ersetzt.</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>What is there already is replaced.</source>
        <translation>Was schon da ist, wird ersetzt.</translation>
    </message>
    <message>
        <source>Container</source>
        <translation>Container</translation>
    </message>
    <message>
        <source>Form of the file; the input's if it is one of these, else mkv.</source>
        <translation>Form der Datei; die der Eingabe, wenn sie eine von diesen ist, sonst mkv.</translation>
    </message>
    <message>
        <source>Keep the date</source>
        <translation>Datum behalten</translation>
    </message>
    <message>
        <source>The result gets the date of its input.</source>
        <translation>Das Ergebnis bekommt das Datum seiner Eingabe.</translation>
    </message>
    <message>
        <source>Video codec</source>
        <translation>Videocodec</translation>
    </message>
    <message>
        <source>How the picture is encoded; copy leaves it as it is.</source>
        <translation>Wie das Bild kodiert wird; copy lässt es, wie es ist.</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualität</translation>
    </message>
    <message>
        <source>On the codec's own scale, lower is better: h264 and hevc to 51, vp9 and av1 to 63. h264 with 0 loses nothing.</source>
        <translation>Auf der Skala des Codecs, kleiner ist besser: h264 und hevc bis 51, vp9 und av1 bis 63. h264 mit 0 verliert nichts.</translation>
    </message>
    <message>
        <source>Pixel format</source>
        <translation>Pixelformat</translation>
    </message>
    <message>
        <source>For example yuv420p, which players need; source keeps depth and sampling.</source>
        <translation>Zum Beispiel yuv420p, das Abspielgeräte brauchen; source behält Tiefe und Unterabtastung.</translation>
    </message>
    <message>
        <source>Encoder speed</source>
        <translation>Tempo des Encoders</translation>
    </message>
    <message>
        <source>The encoder's own word or number: veryfast, medium, slow.</source>
        <translation>Wort oder Zahl des Encoders selbst: veryfast, medium, slow.</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>The result fits into it, keeps its shape and is not enlarged. With ,exact it gets that size.</source>
        <translation>Das Ergebnis passt hinein, behält seine Form und wird nicht vergrößert. Mit ,exact bekommt es genau diese Größe.</translation>
    </message>
    <message>
        <source>Frames a second</source>
        <translation>Bilder pro Sekunde</translation>
    </message>
    <message>
        <source>Without it the source's timing is kept, variable or not.</source>
        <translation>Ohne Angabe bleiben die Zeiten der Quelle, ob fest oder wechselnd.</translation>
    </message>
    <message>
        <source>Part of the clip</source>
        <translation>Teil des Clips</translation>
    </message>
    <message>
        <source>From and to, in seconds from the beginning.</source>
        <translation>Von und bis, in Sekunden vom Anfang an.</translation>
    </message>
    <message>
        <source>HDR</source>
        <translation>HDR</translation>
    </message>
    <message>
        <source>Kept, or mapped to what every screen shows.</source>
        <translation>Behalten oder so umgesetzt, dass jeder Bildschirm es zeigt.</translation>
    </message>
    <message>
        <source>Audio codec</source>
        <translation>Audiocodec</translation>
    </message>
    <message>
        <source>How the sound is encoded; copy leaves it as it is.</source>
        <translation>Wie der Ton kodiert wird; copy lässt ihn, wie er ist.</translation>
    </message>
    <message>
        <source>Audio bitrate</source>
        <translation>Audiobitrate</translation>
    </message>
    <message>
        <source>Kilobits a second and track.</source>
        <translation>Kilobit pro Sekunde und Spur.</translation>
    </message>
    <message>
        <source>Other tracks</source>
        <translation>Übrige Spuren</translation>
    </message>
    <message>
        <source>Whether tracks that are not selected follow as they are.</source>
        <translation>Ob nicht ausgewählte Spuren unverändert mitkommen.</translation>
    </message>
    <message>
        <source>Soft subtitles</source>
        <translation>Abschaltbare Untertitel</translation>
    </message>
    <message>
        <source>Subtitle files become a track that can be switched off.</source>
        <translation>Untertiteldateien werden eine Spur, die sich abschalten lässt.</translation>
    </message>
    <message>
        <source>Burn subtitles in</source>
        <translation>Untertitel einbrennen</translation>
    </message>
    <message>
        <source>The selected subtitle track becomes part of the picture.</source>
        <translation>Die ausgewählte Untertitelspur wird Teil des Bildes.</translation>
    </message>
    <message>
        <source>Strict</source>
        <translation>Streng</translation>
    </message>
    <message>
        <source>Damage in the input is a failure, not a warning.</source>
        <translation>Schäden in der Eingabe sind ein Fehler, keine Warnung.</translation>
    </message>
    <message>
        <source>Jobs</source>
        <translation>Aufträge</translation>
    </message>
    <message>
        <source>How many files at once; 1 when not given.</source>
        <translation>Wie viele Dateien zugleich; ohne Angabe 1.</translation>
    </message>
    <message>
        <source>Threads</source>
        <translation>Threads</translation>
    </message>
    <message>
        <source>Of each encoder; the cores, divided by the jobs, when not given.</source>
        <translation>Jedes Encoders; ohne Angabe die Kerne, geteilt durch die Aufträge.</translation>
    </message>
    <message>
        <source>Stall</source>
        <translation>Stillstand</translation>
    </message>
    <message>
        <source>A conversion without progress for so long is ended; 30 when not given.</source>
        <translation>Eine Umwandlung, die so lange nicht vorankommt, wird beendet; ohne Angabe 30.</translation>
    </message>
    <message>
        <source>Dry run</source>
        <translation>Probelauf</translation>
    </message>
    <message>
        <source>Says what would be done and does nothing.</source>
        <translation>Sagt, was geschehen würde, und tut nichts.</translation>
    </message>
    <message>
        <source>Stop at the first failure</source>
        <translation>Beim ersten Fehler aufhören</translation>
    </message>
    <message>
        <source>What is left is not begun.</source>
        <translation>Was übrig ist, wird nicht begonnen.</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>A bar on a terminal, a line a file elsewhere, JSON for programs, or nothing.</source>
        <translation>Ein Balken im Terminal, sonst eine Zeile je Datei, JSON für Programme oder nichts.</translation>
    </message>
    <message>
        <source>Quiet</source>
        <translation>Still</translation>
    </message>
    <message>
        <source>Only errors.</source>
        <translation>Nur Fehler.</translation>
    </message>
    <message>
        <source>Verbose</source>
        <translation>Ausführlich</translation>
    </message>
    <message>
        <source>Says what is run.</source>
        <translation>Sagt, was ausgeführt wird.</translation>
    </message>
    <message>
        <source>watermark</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>sound track</source>
        <translation>Tonspur</translation>
    </message>
    <message>
        <source>frame effect</source>
        <translation>Bildeffekt</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschnitt</translation>
    </message>
    <message>
        <source>Watermarks</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>Sound tracks</source>
        <translation>Tonspuren</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Frame effects</source>
        <translation>Bildeffekte</translation>
    </message>
    <message>
        <source>Fade in and out</source>
        <translation>Ein-/Ausblenden</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normalisieren</translation>
    </message>
    <message>
        <source>Band pass</source>
        <translation>Bandpass</translation>
    </message>
    <message>
        <source>Chorus</source>
        <translation>Chorus</translation>
    </message>
    <message>
        <source>Flanger</source>
        <translation>Flanger</translation>
    </message>
    <message>
        <source>Echo</source>
        <translation>Echo</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Choice of tracks</source>
        <translation>Wahl der Spuren</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Schärfen</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Kopfüber</translation>
    </message>
    <message>
        <source>Sepia</source>
        <translation>Sepia</translation>
    </message>
    <message>
        <source>Greyscale</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>Negative</source>
        <translation>Negativ</translation>
    </message>
    <message>
        <source>Emboss</source>
        <translation>Prägen</translation>
    </message>
    <message>
        <source>Mosaic</source>
        <translation>Mosaik</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>Vignette</source>
        <translation>Vignette</translation>
    </message>
    <message>
        <source>Old film</source>
        <translation>Alter Film</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>Kanten</translation>
    </message>
    <message>
        <source>Posterize</source>
        <translation>Tontrennung</translation>
    </message>
    <message>
        <source>Warm</source>
        <translation>Warm</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>Kühl</translation>
    </message>
    <message>
        <source>Fisheye</source>
        <translation>Fischauge</translation>
    </message>
    <message>
        <source>Glow</source>
        <translation>Leuchten</translation>
    </message>
    <message>
        <source>Kaleidoscope</source>
        <translation>Kaleidoskop</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Gitter</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Grenzen</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Turning</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Spur</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Verwendung</translation>
    </message>
    <message>
        <source>Beginning</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>Band</source>
        <translation>Band</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Second voice</source>
        <translation>Zweite Stimme</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>While it runs</source>
        <translation>Während der Arbeit</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>Regeln</translation>
    </message>
    <message>
        <source>the type itself</source>
        <translation>den Typ selbst</translation>
    </message>
    <message>
        <source>text watermarks</source>
        <translation>Textwasserzeichen</translation>
    </message>
    <message>
        <source>image watermarks</source>
        <translation>Bildwasserzeichen</translation>
    </message>
    <message>
        <source>tracks of the clip</source>
        <translation>Spuren des Clips</translation>
    </message>
    <message>
        <source>files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>frame effects</source>
        <translation>Bildeffekte</translation>
    </message>
    <message>
        <source>Softens the whole picture.</source>
        <translation>Macht das ganze Bild weich.</translation>
    </message>
    <message>
        <source>Makes edges stand out.</source>
        <translation>Hebt Kanten hervor.</translation>
    </message>
    <message>
        <source>Left becomes right.</source>
        <translation>Links wird rechts.</translation>
    </message>
    <message>
        <source>Top becomes bottom.</source>
        <translation>Oben wird unten.</translation>
    </message>
    <message>
        <source>Browns, as in an old photograph.</source>
        <translation>Brauntöne wie auf einem alten Foto.</translation>
    </message>
    <message>
        <source>Takes the colours away.</source>
        <translation>Nimmt die Farben weg.</translation>
    </message>
    <message>
        <source>Light becomes dark, each colour its opposite.</source>
        <translation>Hell wird dunkel, jede Farbe ihr Gegenteil.</translation>
    </message>
    <message>
        <source>Edges as if pressed into metal.</source>
        <translation>Kanten wie in Metall geprägt.</translation>
    </message>
    <message>
        <source>Large squares instead of details.</source>
        <translation>Große Quadrate statt der Einzelheiten.</translation>
    </message>
    <message>
        <source>A still grain over the picture.</source>
        <translation>Ein stehendes Korn über dem Bild.</translation>
    </message>
    <message>
        <source>Darkens the corners.</source>
        <translation>Dunkelt die Ecken ab.</translation>
    </message>
    <message>
        <source>Browns, grain and dark corners together.</source>
        <translation>Brauntöne, Korn und dunkle Ecken zusammen.</translation>
    </message>
    <message>
        <source>Shows edges alone.</source>
        <translation>Zeigt nur die Kanten.</translation>
    </message>
    <message>
        <source>Few steps of brightness instead of many.</source>
        <translation>Wenige Helligkeitsstufen statt vieler.</translation>
    </message>
    <message>
        <source>More red, less blue.</source>
        <translation>Mehr Rot, weniger Blau.</translation>
    </message>
    <message>
        <source>More blue, less red.</source>
        <translation>Mehr Blau, weniger Rot.</translation>
    </message>
    <message>
        <source>Bends the picture as a very wide lens does.</source>
        <translation>Biegt das Bild wie ein sehr weites Objektiv.</translation>
    </message>
    <message>
        <source>Light spreads around what is bright.</source>
        <translation>Licht breitet sich um das Helle aus.</translation>
    </message>
    <message>
        <source>The left half, mirrored to the right.</source>
        <translation>Die linke Hälfte, nach rechts gespiegelt.</translation>
    </message>
    <message>
        <source>Lines that divide the picture into eighths.</source>
        <translation>Linien, die das Bild in Achtel teilen.</translation>
    </message>
    <message>
        <source>Low pass</source>
        <translation>Tiefpass</translation>
    </message>
    <message>
        <source>High pass</source>
        <translation>Hochpass</translation>
    </message>
    <message>
        <source>Band stop</source>
        <translation>Bandsperre</translation>
    </message>
    <message>
        <source>not turned</source>
        <translation>nicht gedreht</translation>
    </message>
    <message>
        <source>not mirrored</source>
        <translation>nicht gespiegelt</translation>
    </message>
    <message>
        <source>left and right</source>
        <translation>links und rechts</translation>
    </message>
    <message>
        <source>top and bottom</source>
        <translation>oben und unten</translation>
    </message>
    <message>
        <source>both</source>
        <translation>beides</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Bold Italic</source>
        <translation>Fett kursiv</translation>
    </message>
    <message>
        <source>Whole frame</source>
        <translation>Ganzes Bild</translation>
    </message>
    <message>
        <source>As by default: %1</source>
        <translation>Wie die Vorgabe: %1</translation>
    </message>
    <message>
        <source>As the frame</source>
        <translation>Wie das Bild</translation>
    </message>
    <message>
        <source>as it is</source>
        <translation>wie es ist</translation>
    </message>
    <message>
        <source>kept</source>
        <translation>behalten</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>weggelassen</translation>
    </message>
    <message>
        <source>mapped</source>
        <translation>umgerechnet</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>Wie es ist</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>pt</source>
        <translation>pt</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>/100 Hz</source>
        <translation>/100 Hz</translation>
    </message>
    <message>
        <source>‰</source>
        <translation>‰</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>kbit/s</source>
        <translation>kbit/s</translation>
    </message>
    <message>
        <source>frames/s</source>
        <translation>Bilder/s</translation>
    </message>
    <message>
        <source>Smallest width</source>
        <translation>Kleinste Breite</translation>
    </message>
    <message>
        <source>The crop rectangle does not become narrower than this while it is drawn.</source>
        <translation>Schmaler wird das Rechteck beim Zeichnen nicht.</translation>
    </message>
    <message>
        <source>Smallest height</source>
        <translation>Kleinste Höhe</translation>
    </message>
    <message>
        <source>The crop rectangle does not become lower than this while it is drawn.</source>
        <translation>Niedriger wird das Rechteck beim Zeichnen nicht.</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>How much is cut off at the left.</source>
        <translation>Wie viel links abgeschnitten wird.</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>How much is cut off at the top.</source>
        <translation>Wie viel oben abgeschnitten wird.</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Width of the part that is kept. Until it is set, the whole frame.</source>
        <translation>Breite des Teils, der bleibt. Solange sie nicht gesetzt ist, das ganze Bild.</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Height of the part that is kept. Until it is set, the whole frame.</source>
        <translation>Höhe des Teils, der bleibt. Solange sie nicht gesetzt ist, das ganze Bild.</translation>
    </message>
    <message>
        <source>Keep shape</source>
        <translation>Form behalten</translation>
    </message>
    <message>
        <source>The rectangle keeps its ratio of width to height while it is drawn.</source>
        <translation>Das Rechteck behält beim Zeichnen sein Verhältnis von Breite zu Höhe.</translation>
    </message>
    <message>
        <source>The shape that the rectangle keeps while it is drawn. It does not change a rectangle that is there.</source>
        <translation>Die Form, die das Rechteck beim Zeichnen behält. Ein vorhandenes Rechteck ändert sie nicht.</translation>
    </message>
    <message>
        <source>Turn the picture</source>
        <translation>Bild drehen</translation>
    </message>
    <message>
        <source>Whether turning and mirroring, set with the frame effects, take place.</source>
        <translation>Ob Drehen und Spiegeln, bei den Bildeffekten eingestellt, stattfinden.</translation>
    </message>
    <message>
        <source>Distance from the top of the frame, before cropping.</source>
        <translation>Abstand vom oberen Rand des Bildes, vor dem Zuschneiden.</translation>
    </message>
    <message>
        <source>Distance from the left of the frame, before cropping.</source>
        <translation>Abstand vom linken Rand des Bildes, vor dem Zuschneiden.</translation>
    </message>
    <message>
        <source>Default top</source>
        <translation>Vorgabe oben</translation>
    </message>
    <message>
        <source>Where a new watermark begins, as a part of the frame's height.</source>
        <translation>Wo ein neues Wasserzeichen beginnt, als Teil der Bildhöhe.</translation>
    </message>
    <message>
        <source>Default left</source>
        <translation>Vorgabe links</translation>
    </message>
    <message>
        <source>Where a new watermark begins, as a part of the frame's width.</source>
        <translation>Wo ein neues Wasserzeichen beginnt, als Teil der Bildbreite.</translation>
    </message>
    <message>
        <source>Transparency</source>
        <translation>Durchsichtigkeit</translation>
    </message>
    <message>
        <source>0 covers the picture, 100 cannot be seen.</source>
        <translation>0 deckt das Bild ab, 100 ist nicht zu sehen.</translation>
    </message>
    <message>
        <source>Strength of full opacity</source>
        <translation>Faktor der Deckkraft</translation>
    </message>
    <message>
        <source>Opacity in percent times this is the alpha value. 2.55 reaches full opacity.</source>
        <translation>Deckkraft in Prozent mal diese Zahl ist der Alphawert. 2,55 ist volle Deckkraft.</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>Bold, italic, both, or neither.</source>
        <translation>Fett, kursiv, beides oder keins.</translation>
    </message>
    <message>
        <source>Width and height change together.</source>
        <translation>Breite und Höhe ändern sich gemeinsam.</translation>
    </message>
    <message>
        <source>Colour of the letters. The transparency is set by itself.</source>
        <translation>Farbe der Buchstaben. Die Durchsichtigkeit wird für sich eingestellt.</translation>
    </message>
    <message>
        <source>Size of the letters, in points of 96 dots an inch.</source>
        <translation>Größe der Buchstaben, in Punkt bei 96 Punkten pro Zoll.</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schriftart</translation>
    </message>
    <message>
        <source>Family of the letters.</source>
        <translation>Familie der Schrift.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Whether the watermark is a text or an image.</source>
        <translation>Ob das Wasserzeichen ein Text oder ein Bild ist.</translation>
    </message>
    <message>
        <source>What is written into the picture.</source>
        <translation>Was ins Bild geschrieben wird.</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bilddatei</translation>
    </message>
    <message>
        <source>The image file. Its transparency is kept.</source>
        <translation>Die Bilddatei. Ihre Durchsichtigkeit bleibt.</translation>
    </message>
    <message>
        <source>Image format</source>
        <translation>Bildformat</translation>
    </message>
    <message>
        <source>Format of the image file, for files whose content does not tell.</source>
        <translation>Format der Bilddatei, wenn ihr Inhalt es nicht verrät.</translation>
    </message>
    <message>
        <source>Width of the image in the picture.</source>
        <translation>Breite des Bildes im Video.</translation>
    </message>
    <message>
        <source>Height of the image in the picture.</source>
        <translation>Höhe des Bildes im Video.</translation>
    </message>
    <message>
        <source>Leave out</source>
        <translation>Auslassen</translation>
    </message>
    <message>
        <source>The text is left out of what is converted.</source>
        <translation>Der Text kommt nicht in das, was umgewandelt wird.</translation>
    </message>
    <message>
        <source>Where the first line begins, from the top of the frame.</source>
        <translation>Wo die erste Zeile beginnt, vom oberen Rand des Bildes an.</translation>
    </message>
    <message>
        <source>Kept for other programs: subtitles are centred.</source>
        <translation>Für andere Programme behalten: Untertitel stehen in der Mitte.</translation>
    </message>
    <message>
        <source>Where subtitles begin unless that is set, as a part of the frame's height.</source>
        <translation>Wo Untertitel ohne eigene Angabe beginnen, als Teil der Bildhöhe.</translation>
    </message>
    <message>
        <source>Colour of the letters.</source>
        <translation>Farbe der Buchstaben.</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Umriss</translation>
    </message>
    <message>
        <source>Colour of the letters' outline.</source>
        <translation>Farbe des Umrisses der Buchstaben.</translation>
    </message>
    <message>
        <source>Space between lines</source>
        <translation>Zeilenabstand</translation>
    </message>
    <message>
        <source>Added between the lines of one subtitle.</source>
        <translation>Kommt zwischen den Zeilen eines Untertitels hinzu.</translation>
    </message>
    <message>
        <source>Track's own style</source>
        <translation>Eigener Stil der Spur</translation>
    </message>
    <message>
        <source>A track that brings styles of its own keeps them.</source>
        <translation>Eine Spur, die eigene Stile mitbringt, behält sie.</translation>
    </message>
    <message>
        <source>From a file</source>
        <translation>Aus einer Datei</translation>
    </message>
    <message>
        <source>Whether the subtitles are a file beside the clip or a track in it.</source>
        <translation>Ob die Untertitel eine Datei neben dem Clip oder eine Spur in ihm sind.</translation>
    </message>
    <message>
        <source>Subtitle file</source>
        <translation>Untertiteldatei</translation>
    </message>
    <message>
        <source>The file with the subtitles.</source>
        <translation>Die Datei mit den Untertiteln.</translation>
    </message>
    <message>
        <source>Number of the track in the clip.</source>
        <translation>Nummer der Spur im Clip.</translation>
    </message>
    <message>
        <source>Place is set</source>
        <translation>Position ist gesetzt</translation>
    </message>
    <message>
        <source>Whether the place was set, or follows the frame.</source>
        <translation>Ob die Position gesetzt wurde oder dem Bild folgt.</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>The sound begins again until the picture ends.</source>
        <translation>Der Ton beginnt von vorn, bis das Bild endet.</translation>
    </message>
    <message>
        <source>Whether the sound is a file beside the clip or a track in it.</source>
        <translation>Ob der Ton eine Datei neben dem Clip oder eine Spur in ihm ist.</translation>
    </message>
    <message>
        <source>Sound file</source>
        <translation>Tondatei</translation>
    </message>
    <message>
        <source>The file with the sound.</source>
        <translation>Die Datei mit dem Ton.</translation>
    </message>
    <message>
        <source>Played in the preview</source>
        <translation>In der Vorschau gespielt</translation>
    </message>
    <message>
        <source>The track that a preview plays.</source>
        <translation>Die Spur, die eine Vorschau spielt.</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>0 leaves the picture as it is, 50 adds half of the full scale.</source>
        <translation>0 lässt das Bild, wie es ist, 50 gibt die halbe Skala hinzu.</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>0 leaves the picture as it is, -50 halves the contrast, 50 adds half of it.</source>
        <translation>0 lässt das Bild, wie es ist, -50 halbiert den Kontrast, 50 gibt die Hälfte hinzu.</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>0 leaves the colours as they are, -50 takes them away, 50 doubles them.</source>
        <translation>0 lässt die Farben, wie sie sind, -50 nimmt sie weg, 50 verdoppelt sie.</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Eingeschaltet</translation>
    </message>
    <message>
        <source>Whether the frame effect is applied.</source>
        <translation>Ob der Bildeffekt angewendet wird.</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Number of the frame effect in the table.</source>
        <translation>Nummer des Bildeffekts in der Tabelle.</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Clockwise. Setting it switches on "Turn the picture", which stands with the crop.</source>
        <translation>Im Uhrzeigersinn. Schaltet „Bild drehen“ ein, das beim Zuschnitt steht.</translation>
    </message>
    <message>
        <source>After turning. Setting it switches on "Turn the picture", which stands with the crop.</source>
        <translation>Nach dem Drehen. Schaltet „Bild drehen“ ein, das beim Zuschnitt steht.</translation>
    </message>
    <message>
        <source>Whether the effect is applied to the sound.</source>
        <translation>Ob der Effekt auf den Ton angewendet wird.</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>The sound grows from silence at the beginning.</source>
        <translation>Der Ton wächst am Anfang aus der Stille.</translation>
    </message>
    <message>
        <source>Fade out</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>The sound falls to silence at the end.</source>
        <translation>Der Ton sinkt am Ende in die Stille.</translation>
    </message>
    <message>
        <source>Length at the beginning</source>
        <translation>Länge am Anfang</translation>
    </message>
    <message>
        <source>How long the sound grows.</source>
        <translation>Wie lange der Ton wächst.</translation>
    </message>
    <message>
        <source>Length at the end</source>
        <translation>Länge am Ende</translation>
    </message>
    <message>
        <source>How long the sound falls.</source>
        <translation>Wie lange der Ton sinkt.</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>Spitze</translation>
    </message>
    <message>
        <source>The loudest moment reaches this part of full scale.</source>
        <translation>Der lauteste Augenblick erreicht diesen Teil der vollen Aussteuerung.</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>What is kept: below the frequency, above it, around it, or all but that.</source>
        <translation>Was bleibt: unterhalb der Frequenz, oberhalb, um sie herum oder alles außer dem.</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Where the filter works. Above 45 % of the sound's rate, that is taken.</source>
        <translation>Wo der Filter arbeitet. Über 45 % der Abtastrate des Tons gilt dieser Wert.</translation>
    </message>
    <message>
        <source>Steepness</source>
        <translation>Steilheit</translation>
    </message>
    <message>
        <source>How sharply the filter separates.</source>
        <translation>Wie scharf der Filter trennt.</translation>
    </message>
    <message>
        <source>Gain before</source>
        <translation>Lautstärke davor</translation>
    </message>
    <message>
        <source>Loudness of the sound itself.</source>
        <translation>Lautstärke des Tons selbst.</translation>
    </message>
    <message>
        <source>Gain after</source>
        <translation>Lautstärke danach</translation>
    </message>
    <message>
        <source>Loudness of the result.</source>
        <translation>Lautstärke des Ergebnisses.</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Verzögerung</translation>
    </message>
    <message>
        <source>How much later the second voice comes.</source>
        <translation>Wie viel später die zweite Stimme kommt.</translation>
    </message>
    <message>
        <source>Loudness of the second voice.</source>
        <translation>Lautstärke der zweiten Stimme.</translation>
    </message>
    <message>
        <source>Around which the repetition swings.</source>
        <translation>Um die herum die Wiederholung schwingt.</translation>
    </message>
    <message>
        <source>Repetition</source>
        <translation>Wiederholung</translation>
    </message>
    <message>
        <source>How loud each repetition is beside the one before; 95 at the most.</source>
        <translation>Wie laut jede Wiederholung neben der vorigen ist; höchstens 95.</translation>
    </message>
    <message>
        <source>How often it swings: 100 is once a second.</source>
        <translation>Wie oft sie schwingt: 100 ist einmal pro Sekunde.</translation>
    </message>
    <message>
        <source>How much later the echo comes. With 0 there is none.</source>
        <translation>Wie viel später das Echo kommt. Mit 0 gibt es keins.</translation>
    </message>
    <message>
        <source>Loudness of the echo: 500 is half.</source>
        <translation>Lautstärke des Echos: 500 ist die Hälfte.</translation>
    </message>
    <message>
        <source>Whether the effect is applied to picture and sound.</source>
        <translation>Ob der Effekt auf Bild und Ton angewendet wird.</translation>
    </message>
    <message>
        <source>100 is as recorded, 200 twice as fast. The pitch stays. 0 cannot be converted.</source>
        <translation>100 ist wie aufgenommen, 200 doppelt so schnell. Die Tonhöhe bleibt. 0 lässt sich nicht umwandeln.</translation>
    </message>
    <message>
        <source>%1 is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example Color:bcs_contrast or Watermark:0:wm_fontsize.</source>
        <translation>%1 ist keine Adresse. Schreiben Sie TYP:SCHLÜSSEL oder TYP:POSITION:SCHLÜSSEL, zum Beispiel Color:bcs_contrast oder Watermark:0:wm_fontsize.</translation>
    </message>
    <message>
        <source>There is no effect type %1.| Did you mean %2?</source>
        <translation>Es gibt keinen Effekttyp %1.| Meinten Sie %2?</translation>
    </message>
    <message>
        <source>%1 has no property %2.| Did you mean %3?</source>
        <translation>%1 hat keine Eigenschaft %2.| Meinten Sie %3?</translation>
    </message>
    <message>
        <source>There is no output option %1.| Did you mean %2?</source>
        <translation>Es gibt keine Ausgabeoption %1.| Meinten Sie %2?</translation>
    </message>
    <message>
        <source>%1 has no item %2; it has %3, counted from 0.</source>
        <translation>%1 hat kein Element %2; es hat %3, von 0 an gezählt.</translation>
    </message>
    <message>
        <source>%1 has no items. Leave the position out.</source>
        <translation>%1 hat keine Elemente. Lassen Sie die Position weg.</translation>
    </message>
    <message>
        <source>%2 belongs to an item of %1. Write %1:0:%2 for the first one.</source>
        <translation>%2 gehört zu einem Element von %1. Schreiben Sie %1:0:%2 für das erste.</translation>
    </message>
    <message>
        <source>%1 cannot be set here: it is for %2.</source>
        <translation>%1 lässt sich hier nicht setzen: es ist für %2.</translation>
    </message>
    <message>
        <source>%1: %2 is no whole number.</source>
        <translation>%1: %2 ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>%1: %2 is no number.</source>
        <translation>%1: %2 ist keine Zahl.</translation>
    </message>
    <message>
        <source>%1: %2 is neither true nor false.</source>
        <translation>%1: %2 ist weder true noch false.</translation>
    </message>
    <message>
        <source>%1: %2 is no colour. Write a name, #rrggbb, or #aarrggbb with the opacity first.</source>
        <translation>%1: %2 ist keine Farbe. Schreiben Sie einen Namen, #rrggbb oder #aarrggbb mit der Deckkraft zuerst.</translation>
    </message>
    <message>
        <source>%1: %2 is no font. Write the name of a family.</source>
        <translation>%1: %2 ist keine Schrift. Schreiben Sie den Namen einer Familie.</translation>
    </message>
    <message>
        <source>%1: a text is expected.</source>
        <translation>%1: erwartet wird ein Text.</translation>
    </message>
    <message>
        <source>%1: %2 is not between %3 and %4.</source>
        <translation>%1: %2 liegt nicht zwischen %3 und %4.</translation>
    </message>
    <message>
        <source>These settings are just being changed. Try again when that is done.</source>
        <translation>Diese Einstellungen werden gerade geändert. Versuchen Sie es danach noch einmal.</translation>
    </message>
    <message>
        <source>What was to be changed is not there any more.</source>
        <translation>Was geändert werden sollte, gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The items of %1 are always there. Select or clear them instead.</source>
        <translation>Die Elemente von %1 sind immer da. Wählen Sie sie aus oder ab.</translation>
    </message>
    <message>
        <source>%1: %2 is no position between 0 and %3.</source>
        <translation>%1: %2 ist keine Position zwischen 0 und %3.</translation>
    </message>
    <message>
        <source>%1 has no default to go back to.</source>
        <translation>%1 hat keine Vorgabe, zu der es zurückgehen könnte.</translation>
    </message>
    <message>
        <source>%1 is none of %2.| Did you mean %3?</source>
        <translation>%1 ist keins von %2.| Meinten Sie %3?</translation>
    </message>
    <message>
        <source>%1 is no margin. Write pixels (10) or percent (2%).</source>
        <translation>%1 ist kein Rand. Schreiben Sie Pixel (10) oder Prozent (2%).</translation>
    </message>
    <message>
        <source>%1 is no size. Write a part of the frame's width from 1% to 100%.</source>
        <translation>%1 ist keine Größe. Schreiben Sie einen Teil der Bildbreite von 1% bis 100%.</translation>
    </message>
    <message>
        <source>%1: rounding to whole pixels makes %3 of %2 there and back.</source>
        <translation>%1: das Runden auf ganze Pixel macht hin und zurück aus %2 %3.</translation>
    </message>
    <message>
        <source>chosen by hand</source>
        <translation>von Hand gewählt</translation>
    </message>
    <message>
        <source>chosen for its language, %1</source>
        <translation>wegen der Sprache gewählt, %1</translation>
    </message>
    <message>
        <source>chosen as the one that players take, since none is in %1</source>
        <translation>gewählt, weil Abspielprogramme ihn nehmen und keiner auf %1 ist</translation>
    </message>
    <message>
        <source>chosen as forced subtitle</source>
        <translation>als erzwungener Untertitel gewählt</translation>
    </message>
    <message>
        <source>chosen as subtitle file beside the clip</source>
        <translation>als Untertiteldatei neben dem Clip gewählt</translation>
    </message>
    <message>
        <source>The clip has no such track %1. Choose one that it has.</source>
        <translation>Der Clip hat keine solche Spur %1. Wählen Sie eine, die er hat.</translation>
    </message>
    <message>
        <source>Tracks:%1: %2 is no value for this rule.</source>
        <translation>Tracks:%1: %2 ist kein Wert für diese Regel.</translation>
    </message>
    <message>
        <source>%1: %2 is no list. Write words with commas between them.</source>
        <translation>%1: %2 ist keine Liste. Schreiben Sie Wörter mit Kommas dazwischen.</translation>
    </message>
    <message>
        <source>%1: %2 is no size. Write WIDTHxHEIGHT, for example 1280x720, and ,exact behind it to force the shape.</source>
        <translation>%1: %2 ist keine Größe. Schreiben Sie BREITExHÖHE, zum Beispiel 1280x720, und ,exact dahinter, um die Form zu erzwingen.</translation>
    </message>
    <message>
        <source>%1: %2 has more than %3 pixels. Choose a smaller size.</source>
        <translation>%1: %2 hat mehr als %3 Pixel. Wählen Sie eine kleinere Größe.</translation>
    </message>
    <message>
        <source>%1: %2 is no range. Write FROM,TO in seconds, for example 12,40.5; TO comes after FROM.</source>
        <translation>%1: %2 ist kein Bereich. Schreiben Sie VON,BIS in Sekunden, zum Beispiel 12,40.5; BIS liegt hinter VON.</translation>
    </message>
    <message>
        <source>%1: %2 is below %3.</source>
        <translation>%1: %2 liegt unter %3.</translation>
    </message>
    <message>
        <source>Line %1, column %2: %3.</source>
        <translation>Zeile %1, Spalte %2: %3.</translation>
    </message>
    <message>
        <source>A settings file has at most 16 MB.</source>
        <translation>Eine Einstellungsdatei hat höchstens 16 MB.</translation>
    </message>
    <message>
        <source>Objects and lists of a settings file stand at most %1 deep in each other.</source>
        <translation>Objekte und Listen einer Einstellungsdatei stehen höchstens %1 tief ineinander.</translation>
    </message>
    <message>
        <source>A settings file has at most %1 items.</source>
        <translation>Eine Einstellungsdatei hat höchstens %1 Elemente.</translation>
    </message>
    <message>
        <source>This is no settings file: a JSON object with "zoeffect": 1 is expected.</source>
        <translation>Das ist keine Einstellungsdatei: erwartet wird ein JSON-Objekt mit "zoeffect": 1.</translation>
    </message>
    <message>
        <source>This file is of version %1; this program knows versions up to %2. Use a newer program.</source>
        <translation>Diese Datei hat Version %1; dieses Programm kennt Versionen bis %2. Nehmen Sie ein neueres Programm.</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a path</source>
        <translation>ein Pfad</translation>
    </message>
    <message>
        <source>a number of pixels</source>
        <translation>eine Anzahl Pixel</translation>
    </message>
    <message>
        <source>a number of seconds</source>
        <translation>eine Anzahl Sekunden</translation>
    </message>
    <message>
        <source>a value</source>
        <translation>ein Wert</translation>
    </message>
    <message>
        <source>a closing brace } is missing</source>
        <translation>eine schließende Klammer } fehlt</translation>
    </message>
    <message>
        <source>a closing bracket ] is missing</source>
        <translation>eine schließende Klammer ] fehlt</translation>
    </message>
    <message>
        <source>a closing quotation mark is missing</source>
        <translation>ein schließendes Anführungszeichen fehlt</translation>
    </message>
    <message>
        <source>a colon is missing behind a name</source>
        <translation>hinter einem Namen fehlt ein Doppelpunkt</translation>
    </message>
    <message>
        <source>a comma is missing between values</source>
        <translation>zwischen Werten fehlt ein Komma</translation>
    </message>
    <message>
        <source>behind a comma something is missing</source>
        <translation>hinter einem Komma fehlt etwas</translation>
    </message>
    <message>
        <source>this is no value; a text stands in quotation marks</source>
        <translation>das ist kein Wert; ein Text steht in Anführungszeichen</translation>
    </message>
    <message>
        <source>behind a backslash stands what means nothing</source>
        <translation>hinter einem Backslash steht, was nichts bedeutet</translation>
    </message>
    <message>
        <source>this is not UTF-8</source>
        <translation>das ist kein UTF-8</translation>
    </message>
    <message>
        <source>this name stands before in the same braces</source>
        <translation>dieser Name steht schon davor in denselben Klammern</translation>
    </message>
    <message>
        <source>the text goes on behind its end</source>
        <translation>der Text geht hinter seinem Ende weiter</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>ein Wert fehlt</translation>
    </message>
    <message>
        <source>%1: %2 is expected.</source>
        <translation>%1: erwartet wird %2.</translation>
    </message>
    <message>
        <source>%1 has no member %2.| Did you mean %3?</source>
        <translation>%1 hat kein Mitglied %2.| Meinten Sie %3?</translation>
    </message>
    <message>
        <source>%1: there is no frame effect %2.| Did you mean %3?</source>
        <translation>%1: es gibt keinen Bildeffekt %2.| Meinten Sie %3?</translation>
    </message>
    <message>
        <source>%1 stands twice in the file. Leave one of them.</source>
        <translation>%1 steht zweimal in der Datei. Lassen Sie eins davon.</translation>
    </message>
    <message>
        <source>A preset has no "%1": it is for any clip.</source>
        <translation>Eine Vorlage hat kein "%1": sie ist für jeden Clip.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2.</source>
        <translation>%1 ist nicht lesbar: %2.</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2.</source>
        <translation>%1 lässt sich nicht schreiben: %2.</translation>
    </message>
    <message>
        <source>There is no preset %1.| Did you mean %2?</source>
        <translation>Es gibt keine Vorlage %1.| Meinten Sie %2?</translation>
    </message>
    <message>
        <source>There is no preset %1. Write ./%1 for the file of that name.</source>
        <translation>Es gibt keine Vorlage %1. Schreiben Sie ./%1 für die Datei dieses Namens.</translation>
    </message>
    <message>
        <source>There is a preset %1 already. Choose another name, or replace it.</source>
        <translation>Es gibt schon eine Vorlage %1. Wählen Sie einen anderen Namen oder ersetzen Sie sie.</translation>
    </message>
    <message>
        <source>%1 is a preset. Carry the settings over to those of a clip, and make a preset of them.</source>
        <translation>%1 ist eine Vorlage. Übertragen Sie die Einstellungen auf die eines Clips und machen Sie daraus eine Vorlage.</translation>
    </message>
    <message>
        <source>A preset needs a name.</source>
        <translation>Eine Vorlage braucht einen Namen.</translation>
    </message>
    <message>
        <source>%1 has its new settings already. Its old ones lie in %2. %3</source>
        <translation>%1 hat schon die neuen Einstellungen. Die alten liegen in %2. %3</translation>
    </message>
    <message>
        <source>it is locked, damaged or of a newer version</source>
        <translation>sie ist gesperrt, beschädigt oder von einer neueren Version</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is no regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1 was changed by somebody else meanwhile. Nothing was applied; try again.</source>
        <translation>%1 wurde inzwischen von anderer Seite geändert. Nichts wurde übertragen; versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1 exists. Choose another name, or replace it.</source>
        <translation>%1 gibt es schon. Wählen Sie einen anderen Namen oder ersetzen Sie die Datei.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 belongs to a session that is still running.</source>
        <translation>%1 gehört zu einer Sitzung, die noch läuft.</translation>
    </message>
    <message>
        <source>%1 is no journal of a session, or damaged from its beginning.</source>
        <translation>%1 ist kein Journal einer Sitzung oder von Anfang an beschädigt.</translation>
    </message>
    <message>
        <source>The last moments of the session were not written to the end. All before them is back.</source>
        <translation>Die letzten Augenblicke der Sitzung wurden nicht zu Ende geschrieben. Alles davor ist wieder da.</translation>
    </message>
    <message>
        <source>%1 belongs to an editor that is still running. This queue is not kept: it is gone when the program ends.</source>
        <translation>%1 gehört einem Editor, der noch läuft. Diese Warteschlange wird nicht festgehalten: Sie ist weg, wenn das Programm endet.</translation>
    </message>
    <message>
        <source>%1: %2 row(s) of the queue could not be read and are left out. Add their files again.</source>
        <translation>%1: %2 Zeile(n) der Warteschlange waren nicht zu lesen und fehlen. Fügen Sie ihre Dateien neu hinzu.</translation>
    </message>
    <message>
        <source>%1: the journal cannot keep this value, which would be lost if the program ended now. Set another one.</source>
        <translation>%1: Das Journal kann diesen Wert nicht festhalten; er ginge verloren, wenn das Programm jetzt endete. Setzen Sie einen anderen.</translation>
    </message>
    <message>
        <source>%1 was saved %2, later than the unfinished session of %3. Both are kept.</source>
        <translation>%1 wurde %2 gespeichert, später als die unbeendete Sitzung vom %3. Beide bleiben erhalten.</translation>
    </message>
    <message>
        <source>Of %1 nothing can be saved as a default. Choose one of its items.</source>
        <translation>Von %1 lässt sich keine Vorgabe speichern. Wählen Sie eins seiner Elemente.</translation>
    </message>
    <message>
        <source>%1: no settings file can hold this value. Set another one.</source>
        <translation>%1: Diesen Wert kann keine Einstellungsdatei halten. Setzen Sie einen anderen.</translation>
    </message>
    <message>
        <source>change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>switch %1</source>
        <translation>%1 umschalten</translation>
    </message>
    <message>
        <source>add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>add a file</source>
        <translation>Datei hinzufügen</translation>
    </message>
    <message>
        <source>remove a file</source>
        <translation>Datei entfernen</translation>
    </message>
    <message>
        <source>change a saved default</source>
        <translation>gespeicherte Vorgabe ändern</translation>
    </message>
    <message>
        <source>apply to %1 files</source>
        <translation>auf %1 Dateien anwenden</translation>
    </message>
    <message>
        <source>change %1 values</source>
        <translation>%1 Werte ändern</translation>
    </message>
    <message>
        <source>%1: %2 is none of %3.| Did you mean %4?</source>
        <translation>%1: %2 ist keins von %3.| Meinten Sie %4?</translation>
    </message>
    <message>
        <source>Sound languages</source>
        <translation>Sprachen des Tons</translation>
    </message>
    <message>
        <source>All tracks of the first of these languages that the clip has, for example fra,eng.</source>
        <translation>Alle Spuren der ersten dieser Sprachen, die der Clip hat, zum Beispiel fra,eng.</translation>
    </message>
    <message>
        <source>Sound tracks by hand</source>
        <translation>Tonspuren von Hand</translation>
    </message>
    <message>
        <source>Numbers of the tracks; goes before the languages.</source>
        <translation>Nummern der Spuren; geht den Sprachen vor.</translation>
    </message>
    <message>
        <source>Forced subtitles</source>
        <translation>Erzwungene Untertitel</translation>
    </message>
    <message>
        <source>Takes a subtitle that is marked as forced, in the language of the sound.</source>
        <translation>Nimmt einen Untertitel, der als erzwungen gekennzeichnet ist, in der Sprache des Tons.</translation>
    </message>
    <message>
        <source>Files beside the clip</source>
        <translation>Dateien neben dem Clip</translation>
    </message>
    <message>
        <source>Subtitle files of the clip's name count as tracks.</source>
        <translation>Untertiteldateien mit dem Namen des Clips gelten als Spuren.</translation>
    </message>
    <message>
        <source>Subtitle languages</source>
        <translation>Sprachen der Untertitel</translation>
    </message>
    <message>
        <source>One track, of the first of these languages that the clip has.</source>
        <translation>Eine Spur, in der ersten dieser Sprachen, die der Clip hat.</translation>
    </message>
    <message>
        <source>Subtitle by hand</source>
        <translation>Untertitel von Hand</translation>
    </message>
    <message>
        <source>Number of the track, or none; goes before the languages.</source>
        <translation>Nummer der Spur oder none; geht den Sprachen vor.</translation>
    </message>
    <message>
        <source>%1 is not kept with the settings. Give it with each run.</source>
        <translation>%1 wird nicht mit den Einstellungen aufbewahrt. Geben Sie es bei jedem Lauf an.</translation>
    </message>
    <message>
        <source>%1 is missing. Install the package %2, or name its folder by ZOEFFECT_FFMPEG.</source>
        <translation>%1 fehlt. Installieren Sie das Paket %2 oder nennen Sie den Ordner in ZOEFFECT_FFMPEG.</translation>
    </message>
    <message>
        <source>%1 is not in %2, the folder that ZOEFFECT_FFMPEG names. Correct it, or leave it unset.</source>
        <translation>%1 ist nicht in %2, dem Ordner, den ZOEFFECT_FFMPEG nennt. Berichtigen Sie die Angabe oder lassen Sie sie weg.</translation>
    </message>
    <message>
        <source>%1 could not be started: %2. Check that it is installed and may be run.</source>
        <translation>%1 konnte nicht gestartet werden: %2. Prüfen Sie, ob es installiert ist und ausgeführt werden darf.</translation>
    </message>
    <message>
        <source>%1 was ended by signal %2. Try again, with more memory at hand.</source>
        <translation>%1 wurde durch Signal %2 beendet. Versuchen Sie es noch einmal, mit mehr freiem Speicher.</translation>
    </message>
    <message>
        <source>%1: its name is not written in UTF-8. Rename it.</source>
        <translation>%1: Der Name ist nicht in UTF-8 geschrieben. Benennen Sie die Datei um.</translation>
    </message>
    <message>
        <source>%1: no such file.| There is %2.</source>
        <translation>%1: Datei nicht gefunden.| Es gibt %2.</translation>
    </message>
    <message>
        <source>%1 is a folder. Name a file in it.</source>
        <translation>%1 ist ein Ordner. Nennen Sie eine Datei darin.</translation>
    </message>
    <message>
        <source>%1 is no ordinary file. Copy what it gives into one first.</source>
        <translation>%1 ist keine gewöhnliche Datei. Kopieren Sie erst in eine, was daraus kommt.</translation>
    </message>
    <message>
        <source>%1 is open already. Remove it first to open these settings.</source>
        <translation>%1 ist schon geöffnet. Entfernen Sie die Datei zuerst, um diese Einstellungen zu öffnen.</translation>
    </message>
    <message>
        <source>%1 is empty. Get it once more from where it came from.</source>
        <translation>%1 ist leer. Holen Sie die Datei noch einmal von dort, wo sie herkam.</translation>
    </message>
    <message>
        <source>%1 is no media file that can be read. Check that it is whole.| ffprobe says: %2.</source>
        <translation>%1 ist keine lesbare Mediendatei. Prüfen Sie, ob sie vollständig ist.| ffprobe sagt: %2.</translation>
    </message>
    <message>
        <source>%1 holds no picture, no sound and no subtitles. Check that it is whole.</source>
        <translation>%1 enthält weder Bild noch Ton noch Untertitel. Prüfen Sie, ob die Datei vollständig ist.</translation>
    </message>
    <message>
        <source>%1: the size of the picture, track %2, is unknown or above 64 million pixels. Check that it is whole, or make it smaller.</source>
        <translation>%1: Die Größe des Bildes, Spur %2, ist unbekannt oder über 64 Millionen Bildpunkten. Prüfen Sie, ob die Datei vollständig ist, oder verkleinern Sie das Bild.</translation>
    </message>
    <message>
        <source>%1: nothing was found out about it in %2 seconds. Check that its disk answers, and that it is whole.</source>
        <translation>%1: In %2 Sekunden war nichts darüber herauszufinden. Prüfen Sie, ob der Datenträger antwortet und die Datei vollständig ist.</translation>
    </message>
    <message>
        <source>%1: %2: no such file. Bring it back, or choose another.</source>
        <translation>%1: %2: Diese Datei gibt es nicht. Bringen Sie sie zurück oder wählen Sie eine andere.</translation>
    </message>
    <message>
        <source>There is no %1 to be carried over. There is %2.</source>
        <translation>Es gibt kein %1 zu übertragen. Es gibt %2.</translation>
    </message>
    <message>
        <source>%1 of the frame of %2 is left of the crop. At least %3 is needed: move it into the frame or make it larger.</source>
        <translation>Vom Zuschnitt liegen nur %1 im Bild von %2. Es müssen mindestens %3 sein: verschieben Sie ihn ins Bild oder machen Sie ihn größer.</translation>
    </message>
    <message>
        <source>The crop has no width or no height, so nothing is cut off. Set Crop:crop_width and Crop:crop_height, too.</source>
        <translation>Der Zuschnitt hat keine Breite oder keine Höhe, daher wird nichts abgeschnitten. Setzen Sie auch Crop:crop_width und Crop:crop_height.</translation>
    </message>
    <message>
        <source>The crop leaves the frame of %2. %1 is kept of it.</source>
        <translation>Der Zuschnitt reicht über das Bild von %2 hinaus. Behalten wird davon %1.</translation>
    </message>
    <message>
        <source>%1: with %2 width and height have to be even. Take another size, or a pixel format like yuv444p.</source>
        <translation>%1: bei %2 müssen Breite und Höhe gerade sein. Nehmen Sie eine andere Größe oder ein Pixelformat wie yuv444p.</translation>
    </message>
    <message>
        <source>%1: %2 takes pictures with sides of %3 to %4 pixels. Take another size, or another codec.</source>
        <translation>%1: %2 nimmt Bilder, deren Seiten %3 bis %4 Pixel lang sind. Nehmen Sie eine andere Größe oder einen anderen Codec.</translation>
    </message>
    <message>
        <source>With %3 width and height are even: %1 is kept of %2. Take a pixel format like yuv444p to keep all of it.</source>
        <translation>Bei %3 sind Breite und Höhe gerade: Von %2 bleibt %1. Ein Pixelformat wie yuv444p behält alles.</translation>
    </message>
    <message>
        <source>%1 leaves eight bits of a picture that has more.</source>
        <translation>%1 lässt einem Bild mit mehr Bits nur acht.</translation>
    </message>
    <message>
        <source>%1 lies outside of the part that is kept and cannot be seen. Move it, or make the crop larger.</source>
        <translation>%1 liegt außerhalb des behaltenen Teils und ist nicht zu sehen. Verschieben Sie es oder vergrößern Sie den Zuschnitt.</translation>
    </message>
    <message>
        <source>The clip has no picture, so %1 cannot be seen.</source>
        <translation>Die Datei hat kein Bild; %1 ist nicht zu sehen.</translation>
    </message>
    <message>
        <source>This track of subtitles consists of pictures: font and colours stay as they are, only place and transparency follow.</source>
        <translation>Diese Untertitelspur besteht aus Bildern: Schrift und Farben bleiben, wie sie sind, nur Ort und Durchsichtigkeit folgen.</translation>
    </message>
    <message>
        <source>Audio_Speed:audio_speed_factor: with 0 nothing would ever be heard or seen. Take 1 to 200 percent.</source>
        <translation>Audio_Speed:audio_speed_factor: mit 0 wäre nie etwas zu hören oder zu sehen. Nehmen Sie 1 bis 200 Prozent.</translation>
    </message>
    <message>
        <source>%1 has no picture that can be shown. Choose another file.</source>
        <translation>%1 hat kein Bild, das sich zeigen ließe. Nehmen Sie eine andere Datei.</translation>
    </message>
    <message>
        <source>%1 holds no %2</source>
        <translation>%1 fasst kein %2</translation>
    </message>
    <message>
        <source>%1 cannot hold %2. Choose another container, for example mkv, or another codec.</source>
        <translation>%1 kann %2 nicht fassen. Wählen Sie einen anderen Container, zum Beispiel mkv, oder einen anderen Codec.</translation>
    </message>
    <message>
        <source>%1 cannot say that the picture is turned</source>
        <translation>%1 kann nicht sagen, dass das Bild gedreht ist</translation>
    </message>
    <message>
        <source>%1 copy leaves the track as it is, but another setting changes it. Leave out one of the two.</source>
        <translation>%1 copy lässt die Spur, wie sie ist, doch eine andere Einstellung ändert sie. Lassen Sie eines von beiden weg.</translation>
    </message>
    <message>
        <source>%1 cannot say that the picture is turned; players will show it lying. Leave out video-codec copy, or take mp4.</source>
        <translation>%1 kann nicht sagen, dass das Bild gedreht ist; Abspieler zeigen es liegend. Lassen Sie video-codec copy weg oder nehmen Sie mp4.</translation>
    </message>
    <message>
        <source>%1 cannot say that track %2 is turned; players will show it lying. Take mp4 or mov.</source>
        <translation>%1 kann nicht sagen, dass Spur %2 gedreht ist; Abspieler zeigen sie liegend. Nehmen Sie mp4 oder mov.</translation>
    </message>
    <message>
        <source>HDR is mapped to what every screen shows, since hardly any player shows it in %1. Take video-codec hevc to keep it.</source>
        <translation>HDR wird für jeden Bildschirm umgerechnet, weil kaum ein Abspieler es in %1 zeigt. Mit video-codec hevc bleibt es erhalten.</translation>
    </message>
    <message>
        <source>What the clip says of the screen it was made on is lost in %1. Take video-codec hevc to keep it.</source>
        <translation>Was der Clip über den Bildschirm sagt, an dem er entstand, geht in %1 verloren. Mit video-codec hevc bleibt es erhalten.</translation>
    </message>
    <message>
        <source>%1 takes no %2; %3 is taken.</source>
        <translation>%1 nimmt kein %2; genommen wird %3.</translation>
    </message>
    <message>
        <source>%1 takes no pixel format %2. Take yuv420p, or source.</source>
        <translation>%1 nimmt das Pixelformat %2 nicht. Nehmen Sie yuv420p oder source.</translation>
    </message>
    <message>
        <source>%1 means nothing to %2. Leave it out.</source>
        <translation>%1 bedeutet für %2 nichts. Lassen Sie es weg.</translation>
    </message>
    <message>
        <source>other tracks are dropped</source>
        <translation>andere Spuren entfallen</translation>
    </message>
    <message>
        <source>it cannot follow the change of speed</source>
        <translation>sie kann der geänderten Geschwindigkeit nicht folgen</translation>
    </message>
    <message>
        <source>data cannot be carried over</source>
        <translation>Daten lassen sich nicht übertragen</translation>
    </message>
    <message>
        <source>%1 has no sound. Choose another file.</source>
        <translation>%1 enthält keinen Ton. Wählen Sie eine andere Datei.</translation>
    </message>
    <message>
        <source>The clip has no picture to burn subtitles into. Use --soft-subtitles, or leave them out.</source>
        <translation>Der Clip hat kein Bild, in das sich Untertitel einbrennen ließen. Nehmen Sie --soft-subtitles oder lassen Sie sie weg.</translation>
    </message>
    <message>
        <source>%1 keeps no titles of tracks. Take mkv to keep them.</source>
        <translation>%1 behält keine Titel von Spuren. In mkv bleiben sie erhalten.</translation>
    </message>
    <message>
        <source>track %1 (%2): %3</source>
        <translation>Spur %1 (%2): %3</translation>
    </message>
    <message>
        <source>track %1 (%2): not chosen</source>
        <translation>Spur %1 (%2): nicht gewählt</translation>
    </message>
    <message>
        <source>track %1 (%2): copied</source>
        <translation>Spur %1 (%2): kopiert</translation>
    </message>
    <message>
        <source>track %1 (%2): copied as an attachment</source>
        <translation>Spur %1 (%2): als Anhang kopiert</translation>
    </message>
    <message>
        <source>track %1 (%2): burned in</source>
        <translation>Spur %1 (%2): eingebrannt</translation>
    </message>
    <message>
        <source>track %1 (%2): left out, because %3</source>
        <translation>Spur %1 (%2): ausgelassen; %3</translation>
    </message>
    <message>
        <source>track %1 (%2): converted to %3</source>
        <translation>Spur %1 (%2): umgewandelt in %3</translation>
    </message>
    <message>
        <source>track %1 (%2): converted to %3, because %4</source>
        <translation>Spur %1 (%2): umgewandelt in %3; %4</translation>
    </message>
    <message>
        <source>track %1 (%2): deinterlaced and converted to %3</source>
        <translation>Spur %1 (%2): aus Halbbildern zusammengesetzt und umgewandelt in %3</translation>
    </message>
    <message>
        <source>track %1 (%2): deinterlaced and converted to %3, because %4</source>
        <translation>Spur %1 (%2): aus Halbbildern zusammengesetzt und umgewandelt in %3; %4</translation>
    </message>
    <message>
        <source>The settings are for %1, the clip has %2: what is measured in the frame was rescaled.</source>
        <translation>Die Einstellungen sind für %1, der Clip hat %2: Was im Bild gemessen wird, wurde umgerechnet.</translation>
    </message>
    <message>
        <source>The part was to end at %1 s. The clip ends at %2 s, and the part with it.</source>
        <translation>Der Teil sollte bei %1 s enden. Der Clip endet bei %2 s, und der Teil mit ihm.</translation>
    </message>
    <message>
        <source>The part begins at %1 s, and the clip ends at %2 s. Give an earlier one.</source>
        <translation>Der Teil beginnt bei %1 s, und der Clip endet bei %2 s. Geben Sie einen früheren an.</translation>
    </message>
    <message>
        <source>The picture begins at %1 s instead of %2 s: a copy is cut at key frames. Leave out video-codec copy to cut it exactly.</source>
        <translation>Das Bild beginnt bei %1 s statt bei %2 s: Eine Kopie wird an Schlüsselbildern geschnitten. Lassen Sie video-codec copy weg, um genau zu schneiden.</translation>
    </message>
    <message>
        <source>From %1 s on there is no key frame with which a copy could begin. Leave out video-codec copy.</source>
        <translation>Ab %1 s gibt es kein Schlüsselbild, mit dem eine Kopie beginnen könnte. Lassen Sie video-codec copy weg.</translation>
    </message>
    <message>
        <source>its style is kept in that form alone</source>
        <translation>nur diese Form behält seinen Stil</translation>
    </message>
    <message>
        <source>%1 keeps no style of subtitles. Take mkv to keep it, or burn them in.</source>
        <translation>%1 behält keinen Stil von Untertiteln. Nehmen Sie mkv, um ihn zu behalten, oder brennen Sie sie ein.</translation>
    </message>
    <message>
        <source>The subtitles hold no line.</source>
        <translation>Die Untertitel enthalten keine Zeile.</translation>
    </message>
    <message>
        <source>The peak of the sound could not be measured. Leave Audio_Normalize out.</source>
        <translation>Die Spitze des Tons ließ sich nicht messen. Lassen Sie Audio_Normalize weg.</translation>
    </message>
    <message>
        <source>%1 exists. Add --existing skip or --existing replace.</source>
        <translation>%1 gibt es schon. Ergänzen Sie --existing skip oder --existing replace.</translation>
    </message>
    <message>
        <source>%1 is the input itself. Give another output.</source>
        <translation>%1 ist die Eingabe selbst. Geben Sie eine andere Ausgabe an.</translation>
    </message>
    <message>
        <source>%1 is a folder. Give the name of a file, or use --output-folder.</source>
        <translation>%1 ist ein Ordner. Geben Sie den Namen einer Datei an oder nehmen Sie --output-folder.</translation>
    </message>
    <message>
        <source>%1 is no ordinary file. Give another output.</source>
        <translation>%1 ist keine gewöhnliche Datei. Geben Sie eine andere Ausgabe an.</translation>
    </message>
    <message>
        <source>%1 was left by another computer more than a day ago. Remove it if nothing runs there.</source>
        <translation>%1 hat ein anderer Rechner vor mehr als einem Tag hinterlassen. Entfernen Sie es, wenn dort nichts läuft.</translation>
    </message>
    <message>
        <source>%1 failed: %2</source>
        <translation>%1 ist gescheitert: %2</translation>
    </message>
    <message>
        <source>There was no progress for %1 s. Check the disk, or give --stall a larger number.</source>
        <translation>Seit %1 s ging nichts voran. Prüfen Sie den Datenträger oder geben Sie bei --stall mehr an.</translation>
    </message>
    <message>
        <source>The result cannot be read: %1</source>
        <translation>Das Ergebnis ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>The result should hold %1, and holds %2. It was not kept.</source>
        <translation>Das Ergebnis sollte %1 enthalten und enthält %2. Es wurde nicht behalten.</translation>
    </message>
    <message>
        <source>The result has %1 s of %2 s.</source>
        <translation>Das Ergebnis hat %1 s von %2 s.</translation>
    </message>
    <message>
        <source>The input is damaged; what could be read was converted. ffmpeg says: %1</source>
        <translation>Die Eingabe ist beschädigt; was lesbar war, wurde umgewandelt. ffmpeg sagt: %1</translation>
    </message>
    <message>
        <source>The input is damaged, and --strict does not allow that. Leave it out to convert what can be read.</source>
        <translation>Die Eingabe ist beschädigt, und --strict erlaubt das nicht. Ohne --strict wird umgewandelt, was lesbar ist.</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>There is neither picture nor sound to convert. Choose another file.</source>
        <translation>Es gibt weder Bild noch Ton umzuwandeln. Wählen Sie eine andere Datei.</translation>
    </message>
    <message>
        <source>cover</source>
        <translation>Titelbild</translation>
    </message>
    <message>
        <source>video</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>audio</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>subtitle</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>attachment</source>
        <translation>Anhang</translation>
    </message>
    <message>
        <source>data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Spur %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>No audio track is in %1.| Ask for a language that the clip has: %2.</source>
        <translation>Keine Tonspur ist in %1.| Fragen Sie nach einer Sprache, die der Clip hat: %2.</translation>
    </message>
    <message>
        <source>No subtitle is in %1.| Ask for a language that the clip has: %2.</source>
        <translation>Kein Untertitel ist in %1.| Fragen Sie nach einer Sprache, die der Clip hat: %2.</translation>
    </message>
    <message>
        <source>its sample rate is not known</source>
        <translation>ihre Abtastrate ist nicht bekannt</translation>
    </message>
    <message>
        <source>ffmpeg does not know its codec</source>
        <translation>ffmpeg kennt ihren Codec nicht</translation>
    </message>
    <message>
        <source>its letters are not in UTF-8</source>
        <translation>ihre Buchstaben sind nicht in UTF-8</translation>
    </message>
    <message>
        <source>Track %1 holds %2, which ffmpeg cannot draw. Choose another track, or leave it soft.</source>
        <translation>Spur %1 enthält %2, was ffmpeg nicht zeichnen kann. Wählen Sie eine andere Spur, oder brennen Sie sie nicht ein.</translation>
    </message>
    <message>
        <source>top left</source>
        <translation>oben links</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>top right</source>
        <translation>oben rechts</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>middle</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>bottom left</source>
        <translation>unten links</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>bottom right</source>
        <translation>unten rechts</translation>
    </message>
    <message>
        <source>as the frame</source>
        <translation>wie das Bild</translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation>Anker</translation>
    </message>
    <message>
        <source>apply to one file</source>
        <translation>auf eine Datei anwenden</translation>
    </message>
</context>
</TS>
