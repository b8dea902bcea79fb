<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>zoeditor::Actions</name>
    <message>
        <source>Add files</source>
        <comment>tool bar</comment>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Add folder</source>
        <comment>tool bar</comment>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Add &amp;files...</source>
        <translation>Da&amp;teien hinzufügen...</translation>
    </message>
    <message>
        <source>Add f&amp;older...</source>
        <translation>&amp;Ordner hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Remove from the list</source>
        <translation>Aus der Liste &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Save settings</source>
        <translation>Einstellungen &amp;speichern</translation>
    </message>
    <message>
        <source>Save settings &amp;as...</source>
        <translation>Einstellu&amp;ngen speichern unter...</translation>
    </message>
    <message>
        <source>Sa&amp;ve settings of all</source>
        <translation>Einstellungen a&amp;ller speichern</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
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
        <source>Add &amp;text</source>
        <translation>&amp;Text hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;image...</source>
        <translation>B&amp;ild hinzufügen...</translation>
    </message>
    <message>
        <source>Add su&amp;btitle file...</source>
        <translation>&amp;Untertiteldatei hinzufügen...</translation>
    </message>
    <message>
        <source>Add s&amp;ound file...</source>
        <translation>T&amp;ondatei hinzufügen...</translation>
    </message>
    <message>
        <source>Reset what is c&amp;hosen</source>
        <translation>Gewä&amp;hltes zurücksetzen</translation>
    </message>
    <message>
        <source>Reset all of the fi&amp;le</source>
        <translation>A&amp;lles an der Datei zurücksetzen</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Move u&amp;p</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move do&amp;wn</source>
        <translation>Nach u&amp;nten</translation>
    </message>
    <message>
        <source>&amp;Find a value</source>
        <translation>Wert &amp;finden</translation>
    </message>
    <message>
        <source>Colours of the &amp;system</source>
        <translation>Farben des &amp;Systems</translation>
    </message>
    <message>
        <source>&amp;Light colours</source>
        <translation>&amp;Helle Farben</translation>
    </message>
    <message>
        <source>&amp;Dark colours</source>
        <translation>&amp;Dunkle Farben</translation>
    </message>
    <message>
        <source>&amp;English</source>
        <translation>&amp;Englisch (English)</translation>
    </message>
    <message>
        <source>&amp;German (Deutsch)</source>
        <translation>&amp;Deutsch</translation>
    </message>
    <message>
        <source>List of &amp;shortcuts</source>
        <translation>Liste der &amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;After</source>
        <translation>&amp;Nachher</translation>
    </message>
    <message>
        <source>&amp;Before</source>
        <translation>&amp;Vorher</translation>
    </message>
    <message>
        <source>Before &amp;and after</source>
        <translation>V&amp;orher und nachher</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>&amp;Größer</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>&amp;Kleiner</translation>
    </message>
    <message>
        <source>As large as it &amp;fits</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>&amp;100 %</source>
        <translation>&amp;100 %</translation>
    </message>
    <message>
        <source>&amp;Time</source>
        <translation>&amp;Zeit</translation>
    </message>
    <message>
        <source>One frame &amp;back</source>
        <translation>Ein Bild &amp;zurück</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Abspielen</translation>
    </message>
    <message>
        <source>One frame &amp;on</source>
        <translation>Ein Bild &amp;weiter</translation>
    </message>
    <message>
        <source>&amp;Listen</source>
        <translation>Anh&amp;ören</translation>
    </message>
    <message>
        <source>Listen without &amp;effects</source>
        <translation>Ohne &amp;Effekte anhören</translation>
    </message>
    <message>
        <source>Convert &amp;from here</source>
        <translation>&amp;Von hier an umwandeln</translation>
    </message>
    <message>
        <source>Convert &amp;to here</source>
        <translation>&amp;Bis hierher umwandeln</translation>
    </message>
    <message>
        <source>Convert the &amp;whole clip</source>
        <translation>Den &amp;ganzen Clip umwandeln</translation>
    </message>
    <message>
        <source>&amp;Convert...</source>
        <translation>&amp;Umwandeln...</translation>
    </message>
    <message>
        <source>App&amp;ly to...</source>
        <translation>An&amp;wenden auf...</translation>
    </message>
    <message>
        <source>Trac&amp;ks...</source>
        <translation>&amp;Spuren...</translation>
    </message>
    <message>
        <source>Pr&amp;esets...</source>
        <translation>&amp;Vorlagen...</translation>
    </message>
    <message>
        <source>&amp;Queue</source>
        <translation>&amp;Warteschlange</translation>
    </message>
</context>
<context>
    <name>zoeditor::Program</name>
    <message>
        <source>Shows this help.</source>
        <translation>Zeigt diese Hilfe.</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>Zeigt die Version.</translation>
    </message>
    <message>
        <source>What was asked for cannot be written to standard output.</source>
        <translation>Was verlangt war, lässt sich nicht auf die Standardausgabe schreiben.</translation>
    </message>
    <message>
        <source>Edits how films will be converted, and converts them.</source>
        <translation>Bearbeitet, wie Filme umgewandelt werden, und wandelt sie um.</translation>
    </message>
    <message>
        <source>Films, folders of films and settings files.</source>
        <translation>Filme, Ordner mit Filmen und Einstellungsdateien.</translation>
    </message>
    <message>
        <source>[files...]</source>
        <translation>[Dateien...]</translation>
    </message>
</context>
<context>
    <name>zoeditor::Editor</name>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>An editor ended before its time, %1. Its settings are there:</source>
        <translation>Ein Editor wurde vorzeitig beendet (%1). Seine Einstellungen sind noch da:</translation>
    </message>
    <message>
        <source>An editor that opened them has ended twice. It may happen again. They are set aside in %1.</source>
        <translation>Ein Editor, der sie öffnete, ist zweimal abgebrochen. Das kann wieder geschehen. Sie liegen in %1.</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Leave them there</source>
        <translation>Dort lassen</translation>
    </message>
    <message>
        <source>Ask again later</source>
        <translation>Später wieder fragen</translation>
    </message>
    <message>
        <source>%1 was saved later, %2.</source>
        <translation>%1 wurde später gespeichert, %2.</translation>
    </message>
    <message>
        <source>%1 was saved before that, %2.</source>
        <translation>%1 wurde davor gespeichert, %2.</translation>
    </message>
    <message>
        <source>Open what was saved</source>
        <translation>Gespeichertes öffnen</translation>
    </message>
</context>
<context>
    <name>zoeditor::EffectsPane</name>
    <message>
        <source>Open a film to see what can be done with it.</source>
        <translation>Öffnen Sie einen Film, um zu sehen, was mit ihm möglich ist.</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s)</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>Search all values</source>
        <translation>Alle Werte durchsuchen</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Add an image</source>
        <translation>Bild hinzufügen</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg *.gif *.bmp)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.gif *.bmp)</translation>
    </message>
    <message>
        <source>Add a subtitle file</source>
        <translation>Untertiteldatei hinzufügen</translation>
    </message>
    <message>
        <source>Subtitles (%1)</source>
        <translation>Untertitel (%1)</translation>
    </message>
    <message>
        <source>Add a sound file</source>
        <translation>Tondatei hinzufügen</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Nothing found.</source>
        <translation>Nichts gefunden.</translation>
    </message>
</context>
<context>
    <name>zoeditor::FilesModel</name>
    <message>
        <source>is being read</source>
        <translation>wird gelesen</translation>
    </message>
    <message>
        <source>edited</source>
        <translation>bearbeitet</translation>
    </message>
    <message>
        <source>untouched</source>
        <translation>unberührt</translation>
    </message>
    <message>
        <source>saved</source>
        <translation>gespeichert</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
    <message>
        <source>as added</source>
        <translation>unsortiert</translation>
    </message>
    <message>
        <source>by name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>by size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>by length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>by state</source>
        <translation>Zustand</translation>
    </message>
</context>
<context>
    <name>zoeditor::FilesPane</name>
    <message>
        <source>Drop films or folders here.</source>
        <translation>Legen Sie Filme oder Ordner hier ab.</translation>
    </message>
    <message>
        <source>Nothing found.</source>
        <translation>Nichts gefunden.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Filter by name or state</source>
        <translation>Nach Name oder Zustand filtern</translation>
    </message>
    <message>
        <source>Order of the files</source>
        <translation>Reihenfolge der Dateien</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
</context>
<context>
    <name>zoeditor::HistoryPane</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Beginning</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>%1 (undone)</source>
        <translation>%1 (rückgängig)</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
</context>
<context>
    <name>zoeditor::Listening</name>
    <message>
        <source>The player gave up: %1</source>
        <translation>Das Abspielprogramm hat aufgegeben: %1</translation>
    </message>
    <message>
        <source>The sound cannot be kept in %1: %2</source>
        <translation>Der Ton kann nicht in %1 abgelegt werden: %2</translation>
    </message>
    <message>
        <source>There is no player for sound. Install one, for example with: apt-get install pulseaudio-utils</source>
        <translation>Es gibt kein Programm, das Ton abspielt. Installieren Sie eines, zum Beispiel so: apt-get install pulseaudio-utils</translation>
    </message>
    <message>
        <source>The player does not end. Try again.</source>
        <translation>Das Abspielprogramm endet nicht. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>No sound can be heard here. Check that loudspeakers are connected and other programs are heard. The player says: %1</source>
        <translation>Hier ist kein Ton zu hören. Prüfen Sie, ob Lautsprecher angeschlossen und andere Programme zu hören sind. Das Abspielprogramm sagt: %1</translation>
    </message>
</context>
<context>
    <name>zoeditor::MissingTools</name>
    <message>
        <source>This line, in a terminal, installs it</source>
        <translation>Diese Zeile, in einem Terminal, installiert es</translation>
    </message>
    <message>
        <source>Copy the line</source>
        <translation>Zeile kopieren</translation>
    </message>
    <message>
        <source>Look again</source>
        <translation>Noch einmal suchen</translation>
    </message>
</context>
<context>
    <name>zoeditor::Panel</name>
    <message>
        <source>There are none yet. The button Add above makes the first one.</source>
        <translation>Es gibt noch keine. Die Schaltfläche Hinzufügen darüber legt die erste an.</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>saved</source>
        <translation>gespeichert</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>There is nothing to set here: the box in the list above switches it.</source>
        <translation>Hier gibt es nichts einzustellen: Das Kästchen in der Liste darüber schaltet es ein und aus.</translation>
    </message>
    <message>
        <source>Add a file to begin.</source>
        <translation>Fügen Sie zuerst eine Datei hinzu.</translation>
    </message>
    <message>
        <source>Back to the default</source>
        <translation>Zurück zur Vorgabe</translation>
    </message>
    <message>
        <source>Revert: %1</source>
        <translation>Zurücksetzen: %1</translation>
    </message>
    <message>
        <source>Anchor</source>
        <translation>Anker</translation>
    </message>
</context>
<context>
    <name>zoeditor::PictureAccess</name>
    <message>
        <source>One pixel left</source>
        <translation>Ein Pixel nach links</translation>
    </message>
    <message>
        <source>One pixel right</source>
        <translation>Ein Pixel nach rechts</translation>
    </message>
    <message>
        <source>One pixel up</source>
        <translation>Ein Pixel nach oben</translation>
    </message>
    <message>
        <source>One pixel down</source>
        <translation>Ein Pixel nach unten</translation>
    </message>
</context>
<context>
    <name>zoeditor::PicturePane</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Notes on the picture</source>
        <translation>Hinweise zum Bild</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beide</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Vergrößerung</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>100 %</source>
        <translation>1:1</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>zoeditor::PictureView</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Line between before and after</source>
        <translation>Linie zwischen vorher und nachher</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschnitt</translation>
    </message>
    <message>
        <source>Watermark %1</source>
        <translation>Wasserzeichen %1</translation>
    </message>
    <message>
        <source>%1: upper left corner</source>
        <translation>%1: Ecke links oben</translation>
    </message>
    <message>
        <source>%1: upper edge</source>
        <translation>%1: oberer Rand</translation>
    </message>
    <message>
        <source>%1: upper right corner</source>
        <translation>%1: Ecke rechts oben</translation>
    </message>
    <message>
        <source>%1: right edge</source>
        <translation>%1: rechter Rand</translation>
    </message>
    <message>
        <source>%1: lower right corner</source>
        <translation>%1: Ecke rechts unten</translation>
    </message>
    <message>
        <source>%1: lower edge</source>
        <translation>%1: unterer Rand</translation>
    </message>
    <message>
        <source>%1: lower left corner</source>
        <translation>%1: Ecke links unten</translation>
    </message>
    <message>
        <source>%1: left edge</source>
        <translation>%1: linker Rand</translation>
    </message>
    <message>
        <source>%1: place</source>
        <translation>%1: Position</translation>
    </message>
    <message>
        <source>%1, becomes %2</source>
        <translation>%1, wird %2</translation>
    </message>
    <message>
        <source>Stand-in</source>
        <translation>Ersatzbild</translation>
    </message>
    <message>
        <source>Drop films here, or add files.</source>
        <translation>Legen Sie Clips hier ab oder fügen Sie Dateien hinzu.</translation>
    </message>
    <message>
        <source>This file has no picture.</source>
        <translation>Diese Datei hat kein Bild.</translation>
    </message>
</context>
<context>
    <name>zoeditor::Session</name>
    <message>
        <source>%1 is open already. Remove it first to open these settings.</source>
        <translation>%1 ist schon offen. Entfernen Sie die Datei zuerst, um diese Einstellungen zu öffnen.</translation>
    </message>
    <message>
        <source>There are no clips in %1.</source>
        <translation>In %1 sind keine Clips.</translation>
    </message>
    <message>
        <source>%1 is open already.</source>
        <translation>%1 ist schon geöffnet.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>No film: %1. Subtitles and pictures belong to one. Choose it, then Add subtitle file or Add image in the menu Edit.</source>
        <translation>Kein Clip: %1. Untertitel und Bilder gehören zu einem. Wählen Sie ihn, dann „Untertiteldatei hinzufügen“ oder „Bild hinzufügen“ im Menü „Bearbeiten“.</translation>
    </message>
    <message>
        <source>%1 is a subtitle of %2 now.</source>
        <translation>%1 ist jetzt ein Untertitel von %2.</translation>
    </message>
    <message>
        <source>%1 is a watermark of %2 now.</source>
        <translation>%1 ist jetzt ein Wasserzeichen von %2.</translation>
    </message>
</context>
<context>
    <name>zoeditor::ShortcutsDialog</name>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>From field to field, from handle to handle</source>
        <translation>Von Feld zu Feld, von Griff zu Griff</translation>
    </message>
    <message>
        <source>Tab, Shift+Tab</source>
        <translation>Tab, Umschalt+Tab</translation>
    </message>
    <message>
        <source>Drag the marked handle by a pixel, by ten</source>
        <translation>Markierten Griff um ein Pixel ziehen, um zehn</translation>
    </message>
    <message>
        <source>Arrows, Shift+arrows</source>
        <translation>Pfeile, Umschalt+Pfeile</translation>
    </message>
    <message>
        <source>Take a drag back</source>
        <translation>Ziehen zurücknehmen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Push a picture that is larger than its pane</source>
        <translation>Bild schieben, das größer als sein Bereich ist</translation>
    </message>
    <message>
        <source>Alt+arrows</source>
        <translation>Alt+Pfeile</translation>
    </message>
    <message>
        <source>Remove what is chosen in a list</source>
        <translation>Entfernen, was in einer Liste gewählt ist</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Add files that were copied, in the list of files</source>
        <translation>Kopierte Dateien hinzufügen, in der Dateiliste</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Strg+V</translation>
    </message>
    <message>
        <source>Several files at once</source>
        <translation>Mehrere Dateien zugleich</translation>
    </message>
    <message>
        <source>Ctrl+click, Shift+click</source>
        <translation>Strg+Klick, Umschalt+Klick</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>zoeditor::TimeBar</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
</context>
<context>
    <name>zoeditor::TimeLine</name>
    <message>
        <source>Time line</source>
        <translation>Zeitleiste</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Time and length</source>
        <translation>Zeit und Länge</translation>
    </message>
    <message>
        <source>In</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Out</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Listen</source>
        <translation>Hören</translation>
    </message>
</context>
<context>
    <name>zoeditor::ValueControl</name>
    <message>
        <source>Choose: %1</source>
        <translation>Wählen: %1</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>%1
From %2 to %3.</source>
        <translation>%1
Von %2 bis %3.</translation>
    </message>
</context>
<context>
    <name>zoeditor::Window</name>
    <message>
        <source>Values and history</source>
        <translation>Werte und Verlauf</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Add files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Add a folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>%1[*] - zoeditor</source>
        <translation>%1[*] - zoeditor</translation>
    </message>
    <message>
        <source>Save settings</source>
        <translation>Einstellungen speichern</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message numerus="yes">
        <source>The settings of %n file(s) are not saved.</source>
        <translation>
            <numerusform>Die Einstellungen von %n Datei sind nicht gespeichert.</numerusform>
            <numerusform>Die Einstellungen von %n Dateien sind nicht gespeichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save all</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Ohne Speichern schließen</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Offen lassen</translation>
    </message>
    <message numerus="yes">
        <source>The settings of %n file(s) are saved.</source>
        <translation>
            <numerusform>Die Einstellungen von %n Datei sind gespeichert.</numerusform>
            <numerusform>Die Einstellungen von %n Dateien sind gespeichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Films and sound (%1)</source>
        <translation>Clips und Ton (%1)</translation>
    </message>
    <message>
        <source>Settings (*.zoeffect.json)</source>
        <translation>Einstellungen (*.zoeffect.json)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>zoeditor::ApplyDialog</name>
    <message>
        <source>What comes out:</source>
        <translation>Was herauskommt:</translation>
    </message>
    <message>
        <source>What comes out in the smallest and in the largest:</source>
        <translation>Was im kleinsten und im größten herauskommt:</translation>
    </message>
    <message>
        <source>&amp;Append to the lists that are there</source>
        <translation>An vorhandene Listen an&amp;hängen</translation>
    </message>
    <message>
        <source>Apply to other files</source>
        <translation>Auf andere Dateien anwenden</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wohin</translation>
    </message>
    <message>
        <source>To the selected files</source>
        <translation>Auf die ausgewählten Dateien</translation>
    </message>
    <message>
        <source>To all files</source>
        <translation>Auf alle Dateien</translation>
    </message>
    <message>
        <source>To all files of this size</source>
        <translation>Auf alle Dateien dieser Größe</translation>
    </message>
    <message>
        <source>From %1:</source>
        <translation>Aus %1:</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>There is no other file here. Add or select some first.</source>
        <translation>Es gibt keine andere Datei. Fügen Sie zuerst welche hinzu oder wählen Sie welche aus.</translation>
    </message>
    <message>
        <source>Check what is to be applied.</source>
        <translation>Kreuzen Sie an, was angewendet werden soll.</translation>
    </message>
    <message numerus="yes">
        <source>Apply to %n file(s)</source>
        <translation>
            <numerusform>Auf %n Datei anwenden</numerusform>
            <numerusform>Auf %n Dateien anwenden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2 x %3</source>
        <translation>%1, %2 x %3</translation>
    </message>
</context>
<context>
    <name>zoeditor::ConvertDialog</name>
    <message>
        <source>Convert</source>
        <translation>Umwandeln</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Options of</source>
        <translation>Optionen von</translation>
    </message>
    <message numerus="yes">
        <source>Options of all %n file(s)</source>
        <translation>
            <numerusform>Optionen von %n Datei</numerusform>
            <numerusform>Optionen aller %n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Options of %1</source>
        <translation>Optionen von %1</translation>
    </message>
    <message>
        <source>&amp;Folder of the results:</source>
        <translation>&amp;Ordner der Ergebnisse:</translation>
    </message>
    <message>
        <source>Folder of the results</source>
        <translation>Ordner der Ergebnisse</translation>
    </message>
    <message>
        <source>beside each clip</source>
        <translation>neben jedem Clip</translation>
    </message>
    <message>
        <source>C&amp;hoose...</source>
        <translation>&amp;Wählen...</translation>
    </message>
    <message>
        <source>are left, and the job fails</source>
        <translation>bleiben, und der Auftrag schlägt fehl</translation>
    </message>
    <message>
        <source>are left, and the job is skipped</source>
        <translation>bleiben, und der Auftrag entfällt</translation>
    </message>
    <message>
        <source>are replaced</source>
        <translation>werden ersetzt</translation>
    </message>
    <message>
        <source>What becomes of each track</source>
        <translation>Was aus jeder Spur wird</translation>
    </message>
    <message>
        <source>What comes out</source>
        <translation>Was herauskommt</translation>
    </message>
    <message>
        <source>Show the &amp;command</source>
        <translation>&amp;Befehl zeigen</translation>
    </message>
    <message>
        <source>Co&amp;py it</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Convert 10 seconds from &amp;here</source>
        <translation>Ab &amp;hier 10 Sekunden umwandeln</translation>
    </message>
    <message>
        <source>&amp;Watch these 10 seconds</source>
        <translation>10 Sekunden &amp;ansehen</translation>
    </message>
    <message>
        <source>The command</source>
        <translation>Der Befehl</translation>
    </message>
    <message>
        <source>One moment: the sound is measured, and subtitles are read.</source>
        <translation>Einen Augenblick: Der Ton wird gemessen, und Untertitel werden gelesen.</translation>
    </message>
    <message>
        <source>Ten seconds are being converted: %1 %</source>
        <translation>Zehn Sekunden werden umgewandelt: %1 %</translation>
    </message>
    <message>
        <source>Ten seconds are being converted.</source>
        <translation>Zehn Sekunden werden umgewandelt.</translation>
    </message>
    <message>
        <source>%1 has %2; all of the clip would have about %3. It is removed when this window is closed.</source>
        <translation>%1 hat %2; der ganze Clip hätte etwa %3. Die Datei wird entfernt, wenn dieses Fenster geschlossen wird.</translation>
    </message>
    <message>
        <source>an unknown size</source>
        <translation>eine unbekannte Größe</translation>
    </message>
    <message>
        <source>%1 cannot be made. Choose another folder.</source>
        <translation>%1 lässt sich nicht anlegen. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>In the queue already: %1.</source>
        <translation>Schon in der Warteschlange: %1.</translation>
    </message>
    <message numerus="yes">
        <source>Only the %n selected file(s): %1</source>
        <translation>
            <numerusform>Nur die ausgewählte Datei: %1</numerusform>
            <numerusform>Nur die %n ausgewählten Dateien: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %n file(s)</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>Alle %n Dateien</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Convert %n file(s)</source>
        <translation>
            <numerusform>%n Datei umwandeln</numerusform>
            <numerusform>%n Dateien umwandeln</numerusform>
        </translation>
    </message>
    <message>
        <source>What is converted</source>
        <translation>Was umgewandelt wird</translation>
    </message>
    <message>
        <source>It begins at %1 s: less than ten seconds come after the picture shown.</source>
        <translation>Sie beginnt bei %1 s: Nach dem gezeigten Bild kommen weniger als zehn Sekunden.</translation>
    </message>
    <message>
        <source>It begins at %1 s.</source>
        <translation>Sie beginnt bei %1 s.</translation>
    </message>
</context>
<context>
    <name>zoeditor::DefaultsPage</name>
    <message>
        <source>&amp;Forget it</source>
        <translation>&amp;Vergessen</translation>
    </message>
    <message>
        <source>Effect type</source>
        <translation>Art des Effekts</translation>
    </message>
    <message>
        <source>Defaults</source>
        <translation>Vorgaben</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Comes from</source>
        <translation>Kommt von</translation>
    </message>
    <message>
        <source>No default is saved: new files get the values that are built in.</source>
        <translation>Keine Vorgabe ist gespeichert: Neue Dateien bekommen die eingebauten Werte.</translation>
    </message>
    <message>
        <source>Files that are added from now on get the saved values, and so does what is taken back.</source>
        <translation>Dateien, die von nun an hinzukommen, bekommen die gespeicherten Werte, und ebenso, was zurückgesetzt wird.</translation>
    </message>
    <message>
        <source>&amp;Save number %1 of the current file as default</source>
        <translation>Nummer %1 der aktuellen Datei als Vorgabe &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Save those of the current file as default</source>
        <translation>Werte der aktuellen Datei als Vorgabe &amp;speichern</translation>
    </message>
    <message>
        <source>saved default</source>
        <translation>gespeicherte Vorgabe</translation>
    </message>
    <message>
        <source>built in</source>
        <translation>eingebaut</translation>
    </message>
</context>
<context>
    <name>zoeditor::DifferenceList</name>
    <message>
        <source>What changes</source>
        <translation>Was sich ändert</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Old</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message numerus="yes">
        <source>%n more</source>
        <translation>
            <numerusform>%n weiterer</numerusform>
            <numerusform>%n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing changes.</source>
        <translation>Nichts ändert sich.</translation>
    </message>
</context>
<context>
    <name>zoeditor::Flows</name>
    <message>
        <source>Queue</source>
        <translation>Warteschlange</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Files are being converted. What is not done is kept as interrupted, and can be tried again after the next start.</source>
        <translation>Dateien werden umgewandelt. Was nicht fertig ist, bleibt als unterbrochen erhalten und kann nach dem nächsten Start noch einmal versucht werden.</translation>
    </message>
    <message>
        <source>Stop and close</source>
        <translation>Anhalten und schließen</translation>
    </message>
    <message>
        <source>Go on converting</source>
        <translation>Weiter umwandeln</translation>
    </message>
</context>
<context>
    <name>zoeditor::Jobs</name>
    <message>
        <source>%1: the name of a result cannot have %2. Use {name}, {number} and {ending}, and choose a folder below.</source>
        <translation>%1: Der Name eines Ergebnisses kann kein %2 haben. Nehmen Sie {name}, {number} und {ending}, und wählen Sie den Ordner unten.</translation>
    </message>
    <message>
        <source>%1 is one of the clips. Choose another name.</source>
        <translation>%1 ist einer der Clips. Wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>%1 and %2 would both become %3. Put {name} or {number} into the name.</source>
        <translation>%1 und %2 würden beide zu %3. Nehmen Sie {name} oder {number} in den Namen auf.</translation>
    </message>
    <message>
        <source>There is nothing to convert. Add files first.</source>
        <translation>Es gibt nichts umzuwandeln. Fügen Sie zuerst Dateien hinzu.</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>wartet</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>angehalten</translation>
    </message>
    <message>
        <source>done</source>
        <translation>fertig</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>ausgelassen</translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation>unterbrochen</translation>
    </message>
    <message>
        <source>%1 exists. Choose another folder, or what happens to existing files, in Convert.</source>
        <translation>%1 gibt es schon. Wählen Sie unter „Umwandeln“ einen anderen Ordner, oder was mit vorhandenen Dateien geschieht.</translation>
    </message>
    <message>
        <source>%1 is a folder. Choose another name or folder in Convert.</source>
        <translation>%1 ist ein Ordner. Wählen Sie unter „Umwandeln“ einen anderen Namen oder Ordner.</translation>
    </message>
    <message>
        <source>There was no progress for %1 s. Check the disk, and try again.</source>
        <translation>Es ging %1 s lang nicht voran. Prüfen Sie den Datenträger, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The input is damaged, and &quot;Strict&quot; in Convert does not allow that. Switch it off to convert what can be read.</source>
        <translation>Die Eingabe ist beschädigt, und „Streng“ unter „Umwandeln“ erlaubt das nicht. Schalten Sie es aus, um umzuwandeln, was sich lesen lässt.</translation>
    </message>
    <message>
        <source>The clip has no picture to burn subtitles into. Tick &quot;Soft subtitles&quot; in Convert, or leave them out.</source>
        <translation>Der Clip hat kein Bild, in das Untertitel eingebrannt werden könnten. Wählen Sie unter „Umwandeln“ „Abschaltbare Untertitel“, oder lassen Sie sie weg.</translation>
    </message>
</context>
<context>
    <name>zoeditor::LanguageList</name>
    <message>
        <source>None is asked for. Choose one below and add it.</source>
        <translation>Keine ist verlangt. Wählen Sie unten eine und fügen Sie sie hinzu.</translation>
    </message>
    <message>
        <source>Language to add: %1</source>
        <translation>Sprache, die hinzukommt: %1</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
</context>
<context>
    <name>zoeditor::OptionsForm</name>
    <message>
        <source>Output options</source>
        <translation>Ausgabeoptionen</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>Nicht gesetzt</translation>
    </message>
    <message>
        <source>Revert: %1</source>
        <translation>Zurücksetzen: %1</translation>
    </message>
    <message>
        <source>per file</source>
        <translation>je Datei</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>not set: %1</source>
        <translation>nicht gesetzt: %1</translation>
    </message>
    <message>
        <source>different</source>
        <translation>verschieden</translation>
    </message>
    <message>
        <source>set</source>
        <translation>gesetzt</translation>
    </message>
    <message>
        <source>for example %1</source>
        <translation>z. B. %1</translation>
    </message>
    <message>
        <source>The picture of %1 has %2 x %3: it is not enlarged. Write ,exact behind the size to enlarge it.</source>
        <translation>Das Bild von %1 hat %2 x %3: es wird nicht vergrößert. Schreiben Sie ,exact hinter die Größe, um es zu vergrößern.</translation>
    </message>
</context>
<context>
    <name>zoeditor::PresetsDialog</name>
    <message>
        <source>There is no preset yet. Check what it is to hold, name it and save it.</source>
        <translation>Es gibt noch keine Vorlage. Kreuzen Sie an, was sie enthalten soll, benennen und speichern Sie sie.</translation>
    </message>
    <message>
        <source>Choose a preset to see what it changes.</source>
        <translation>Wählen Sie eine Vorlage, um zu sehen, was sie ändert.</translation>
    </message>
    <message>
        <source>&amp;Replace the one that is there</source>
        <translation>Die vorhandene &amp;ersetzen</translation>
    </message>
    <message>
        <source>Presets and defaults</source>
        <translation>Vorlagen und Vorgaben</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Saved defaults</source>
        <translation>Gespeicherte Vorgaben</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>E&amp;ntfernen</translation>
    </message>
    <message>
        <source>Remove a preset</source>
        <translation>Vorlage entfernen</translation>
    </message>
    <message>
        <source>Remove the preset %1? This cannot be undone.</source>
        <translation>Die Vorlage %1 entfernen? Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Einlesen...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Ausgeben...</translation>
    </message>
    <message>
        <source>What it changes in the selected files:</source>
        <translation>Was sie in den ausgewählten Dateien ändert:</translation>
    </message>
    <message numerus="yes">
        <source>&amp;Apply to %n selected file(s)</source>
        <translation>
            <numerusform>Auf die ausgewählte Datei an&amp;wenden</numerusform>
            <numerusform>Auf die %n ausgewählten Dateien an&amp;wenden</numerusform>
        </translation>
    </message>
    <message>
        <source>Presets (*.zoeffect.json)</source>
        <translation>Vorlagen (*.zoeffect.json)</translation>
    </message>
    <message>
        <source>Import presets</source>
        <translation>Vorlagen einlesen</translation>
    </message>
    <message>
        <source>Export the preset</source>
        <translation>Vorlage ausgeben</translation>
    </message>
    <message>
        <source>Of the current file</source>
        <translation>Aus der aktuellen Datei</translation>
    </message>
    <message>
        <source>&amp;Name of the preset:</source>
        <translation>&amp;Name der Vorlage:</translation>
    </message>
    <message>
        <source>Name of the preset</source>
        <translation>Name der Vorlage</translation>
    </message>
    <message>
        <source>&amp;Save what is checked</source>
        <translation>Angekreuztes &amp;speichern</translation>
    </message>
    <message>
        <source>Re&amp;name the chosen one</source>
        <translation>Die gewählte &amp;umbenennen</translation>
    </message>
    <message>
        <source>What was imported names files that are not there:</source>
        <translation>Das Eingelesene nennt Dateien, die es nicht gibt:</translation>
    </message>
</context>
<context>
    <name>zoeditor::QueuePane</name>
    <message>
        <source>Nothing is to be converted yet. Choose Convert above.</source>
        <translation>Noch ist nichts umzuwandeln. Wählen Sie oben Umwandeln.</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>Queue</source>
        <translation>Warteschlange</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Time left</source>
        <translation>Restzeit</translation>
    </message>
    <message>
        <source>Log of the chosen file</source>
        <translation>Protokoll der gewählten Datei</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;bbrechen</translation>
    </message>
    <message>
        <source>&amp;Try again</source>
        <translation>&amp;Noch einmal</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Open folder</source>
        <translation>&amp;Ordner zeigen</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>%1 of %2 done</source>
        <translation>%1 von %2 fertig</translation>
    </message>
    <message>
        <source>Convert earlier</source>
        <translation>Früher umwandeln</translation>
    </message>
    <message>
        <source>Convert later</source>
        <translation>Später umwandeln</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Remove all d&amp;one</source>
        <translation>Fertige &amp;wegräumen</translation>
    </message>
</context>
<context>
    <name>zoeditor::SleepGuard</name>
    <message>
        <source>Films are being converted</source>
        <translation>Clips werden umgewandelt</translation>
    </message>
</context>
<context>
    <name>zoeditor::TracksDialog</name>
    <message>
        <source>This file has neither sound nor subtitles. The menu Edit adds a sound file or a subtitle file.</source>
        <translation>Diese Datei hat weder Ton noch Untertitel. Das Menü Bearbeiten fügt eine Tondatei oder eine Untertiteldatei hinzu.</translation>
    </message>
    <message>
        <source>Subtitles %1</source>
        <translation>Untertitel %1</translation>
    </message>
    <message>
        <source>Sound %1: %2</source>
        <translation>Ton %1: %2</translation>
    </message>
    <message>
        <source>Subtitles %1: %2</source>
        <translation>Untertitel %1: %2</translation>
    </message>
    <message>
        <source>Sound in the first of these languages:</source>
        <translation>Ton in der ersten dieser Sprachen:</translation>
    </message>
    <message>
        <source>Subtitles in the first of these languages:</source>
        <translation>Untertitel in der ersten dieser Sprachen:</translation>
    </message>
    <message>
        <source>&amp;Forced subtitles</source>
        <translation>&amp;Erzwungene Untertitel</translation>
    </message>
    <message>
        <source>A forced subtitle in the language of the sound is shown.</source>
        <translation>Ein erzwungener Untertitel in der Sprache des Tons wird gezeigt.</translation>
    </message>
    <message>
        <source>Subtitle files &amp;beside the clip</source>
        <translation>Untertiteldateien &amp;neben dem Clip</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Spuren</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Tracks of %1:</source>
        <translation>Spuren von %1:</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Spur</translation>
    </message>
    <message>
        <source>Chosen</source>
        <translation>Gewählt</translation>
    </message>
    <message>
        <source>What becomes of it</source>
        <translation>Was daraus wird</translation>
    </message>
    <message>
        <source>By the &amp;rules again</source>
        <translation>Wieder nach den &amp;Regeln</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wohin</translation>
    </message>
    <message>
        <source>Apply to this file</source>
        <translation>Auf diese Datei anwenden</translation>
    </message>
    <message>
        <source>Apply to the selected files</source>
        <translation>Auf die ausgewählten Dateien anwenden</translation>
    </message>
    <message>
        <source>Apply to all files</source>
        <translation>Auf alle Dateien anwenden</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>not used</source>
        <translation>nicht verwendet</translation>
    </message>
    <message numerus="yes">
        <source>Subtitle files &amp;beside the clip (%n)</source>
        <translation>
            <numerusform>Untertiteldatei &amp;neben dem Clip (%n)</numerusform>
            <numerusform>Untertiteldateien &amp;neben dem Clip (%n)</numerusform>
        </translation>
    </message>
    <message>
        <source>What is chosen comes first, and players take it by themselves. The others follow as they are, unless &quot;Other tracks&quot; in Convert drops them. Where none is chosen, all stay as they are.</source>
        <translation>Was gewählt ist, kommt zuerst, und Abspielprogramme nehmen es von selbst. Die anderen folgen, wie sie sind, außer „Übrige Spuren“ unter „Umwandeln“ lässt sie weg. Wo keine gewählt ist, bleiben alle, wie sie sind.</translation>
    </message>
</context>
<context>
    <name>zoeditor::WhatTree</name>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
</context>
<context>
    <name>zoeditor::AnchorControl</name>
    <message>
        <source>free</source>
        <translation>frei</translation>
    </message>
    <message>
        <source>The place in the frame that the watermark keeps at every size. Free: it stays where it was put. (anchor)</source>
        <translation>Der Platz im Bild, den das Wasserzeichen in jeder Größe behält. Frei: Es bleibt, wo es hingesetzt wurde. (anchor)</translation>
    </message>
</context>
<context>
    <name>zoeditor::SoundDevice</name>
    <message>
        <source>The sound device gave up.</source>
        <translation>Das Tongerät hat aufgegeben.</translation>
    </message>
    <message>
        <source>No sound can be heard here: the sound device gave up. Check that loudspeakers are connected and other programs are heard.</source>
        <translation>Hier ist kein Ton zu hören: das Tongerät hat aufgegeben. Prüfen Sie, ob Lautsprecher angeschlossen und andere Programme zu hören sind.</translation>
    </message>
</context>
<context>
    <name>zoeditor::Outside</name>
    <message>
        <source>No program opens %1. Install one, for example with: apt-get install xdg-utils mpv</source>
        <translation>Kein Programm öffnet %1. Installieren Sie eines, zum Beispiel mit: apt-get install xdg-utils mpv</translation>
    </message>
</context>
</TS>
