<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Localized</name>
    <message>
        <source>Lyric metadata found in original file, do you want to use this Lryic to perform editing?</source>
        <translation>Die Datei enthält bereits einen Liedtext. Möchten Sie ihn bearbeiten?</translation>
    </message>
    <message>
        <source>Confirm Use</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Drag and drop the lyrics file here or</source>
        <translation>Ziehen Sie eine Liedtextdatei hierher oder</translation>
    </message>
    <message>
        <source>Start with empty file</source>
        <translation>mit leerer Datei beginnen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Open the help page</source>
        <translation>Hilfeseite öffnen</translation>
    </message>
    <message>
        <source>Stamp and stay</source>
        <translation>Stempeln und bleiben</translation>
    </message>
    <message>
        <source>Up one line and play from it</source>
        <translation>Eine Zeile hinauf und von dort wiedergeben</translation>
    </message>
    <message>
        <source>10 ms earlier</source>
        <translation>10 ms früher</translation>
    </message>
    <message>
        <source>10 ms later</source>
        <translation>10 ms später</translation>
    </message>
    <message>
        <source>100 ms earlier</source>
        <translation>100 ms früher</translation>
    </message>
    <message>
        <source>100 ms later</source>
        <translation>100 ms später</translation>
    </message>
    <message>
        <source>1 s earlier</source>
        <translation>1 s früher</translation>
    </message>
    <message>
        <source>1 s later</source>
        <translation>1 s später</translation>
    </message>
    <message>
        <source>Play from this line</source>
        <translation>Ab dieser Zeile wiedergeben</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Wiedergeben oder anhalten</translation>
    </message>
    <message>
        <source>Insert line before</source>
        <translation>Zeile davor einfügen</translation>
    </message>
    <message>
        <source>Insert line after</source>
        <translation>Zeile danach einfügen</translation>
    </message>
    <message>
        <source>Duplicate line</source>
        <translation>Zeile duplizieren</translation>
    </message>
    <message>
        <source>Delete lines</source>
        <translation>Zeilen löschen</translation>
    </message>
    <message>
        <source>Delete all lines</source>
        <translation>Alle Zeilen löschen</translation>
    </message>
    <message>
        <source>Move lines up</source>
        <translation>Zeilen nach oben schieben</translation>
    </message>
    <message>
        <source>Move lines down</source>
        <translation>Zeilen nach unten schieben</translation>
    </message>
    <message>
        <source>Join with the next line</source>
        <translation>Mit der nächsten Zeile verbinden</translation>
    </message>
    <message>
        <source>Split at the text cursor</source>
        <translation>An der Schreibmarke teilen</translation>
    </message>
    <message>
        <source>Remove times and tags</source>
        <translation>Zeiten und Angaben entfernen</translation>
    </message>
    <message>
        <source>Remove all times and tags</source>
        <translation>Alle Zeiten und Angaben entfernen</translation>
    </message>
    <message>
        <source>Make this line the title</source>
        <translation>Diese Zeile zum Titel machen</translation>
    </message>
    <message>
        <source>Make this line the artist</source>
        <translation>Diese Zeile zum Interpreten machen</translation>
    </message>
    <message>
        <source>Make this line the album</source>
        <translation>Diese Zeile zum Album machen</translation>
    </message>
    <message>
        <source>Make this line the editor</source>
        <translation>Diese Zeile zum Bearbeiter machen</translation>
    </message>
    <message>
        <source>Shift all times…</source>
        <translation>Alle Zeiten verschieben …</translation>
    </message>
    <message>
        <source>Shift the selected times…</source>
        <translation>Ausgewählte Zeiten verschieben …</translation>
    </message>
    <message>
        <source>Copy lines</source>
        <translation>Zeilen kopieren</translation>
    </message>
    <message>
        <source>Paste lines</source>
        <translation>Zeilen einfügen</translation>
    </message>
    <message>
        <source>Paste text as lines</source>
        <translation>Text als Zeilen einfügen</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Show the LRC text</source>
        <translation>LRC-Text anzeigen</translation>
    </message>
    <message>
        <source>Open lyric file…</source>
        <translation>Liedtextdatei öffnen …</translation>
    </message>
    <message>
        <source>Show all keys</source>
        <translation>Alle Tasten anzeigen</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Angaben</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Lyric</source>
        <translation>Liedtext</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Num Enter</source>
        <translation>Num-Eingabe</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Ins</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Page up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Page down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Meta</source>
        <translation>Meta</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>%1 s earlier than the line above</source>
        <translation>%1 s früher als die Zeile darüber</translation>
    </message>
    <message>
        <source>%1 s later than the line below</source>
        <translation>%1 s später als die Zeile darunter</translation>
    </message>
    <message>
        <source>The same text at the same time as the line above</source>
        <translation>Derselbe Text zur selben Zeit wie in der Zeile darüber</translation>
    </message>
    <message>
        <source>This time stands on the line twice</source>
        <translation>Diese Zeit steht zweimal in der Zeile</translation>
    </message>
    <message>
        <source>More than three lines at the same time</source>
        <translation>Mehr als drei Zeilen zur selben Zeit</translation>
    </message>
    <message>
        <source>Nothing comes for %1 s after this line</source>
        <translation>Nach dieser Zeile kommt %1 s lang nichts</translation>
    </message>
    <message>
        <source>Past the end of the song (%1)</source>
        <translation>Hinter dem Ende des Liedes (%1)</translation>
    </message>
    <message>
        <source>Empty, like the line above</source>
        <translation>Leer wie die Zeile darüber</translation>
    </message>
    <message>
        <source>Empty %1 s after the line above</source>
        <translation>Leer schon %1 s nach der Zeile darüber</translation>
    </message>
    <message>
        <source>Empty only %1 s before the next line</source>
        <translation>Leer erst %1 s vor der nächsten Zeile</translation>
    </message>
    <message>
        <source>Keys of the editor</source>
        <translation>Tasten des Editors</translation>
    </message>
    <message>
        <source>Search for a command or a key</source>
        <translation>Nach einem Befehl oder einer Taste suchen</translation>
    </message>
    <message>
        <source>Search commands and keys</source>
        <translation>Befehle und Tasten durchsuchen</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>no key</source>
        <translation>keine Taste</translation>
    </message>
    <message>
        <source>No command is called that.</source>
        <translation>Kein Befehl heißt so.</translation>
    </message>
    <message>
        <source>Commands and their keys</source>
        <translation>Befehle und ihre Tasten</translation>
    </message>
    <message>
        <source>Please input the right time format[mm:ss.SS]!</source>
        <translation>Bitte geben Sie die Zeit im Format [mm:ss.SS] ein!</translation>
    </message>
    <message>
        <source>Time point %@</source>
        <translation>Zeitpunkt %@</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Set offset of all time labels:(positive forward，negtive backward)</source>
        <translation>Versatz aller Zeitmarken:(positiv vorwärts, negativ rückwärts)</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>No tags have been entered yet. Please insert tags first and then preview the lyrics.</source>
        <translation>Es gibt noch keine Zeitmarken. Bitte fügen Sie zuerst Marken ein und öffnen Sie dann die Vorschau.</translation>
    </message>
    <message>
        <source>Drag Audio File Here!</source>
        <translation>Audiodatei hierher ziehen!</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergeben</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Play or pause this song</source>
        <translation>Dieses Lied wiedergeben oder anhalten</translation>
    </message>
    <message>
        <source>Position in the song</source>
        <translation>Position im Lied</translation>
    </message>
    <message>
        <source>Go to another place in the song</source>
        <translation>Zu einer anderen Stelle des Liedes springen</translation>
    </message>
    <message>
        <source>Position and length</source>
        <translation>Position und Länge</translation>
    </message>
    <message>
        <source>Cover picture</source>
        <translation>Titelbild</translation>
    </message>
    <message>
        <source>Audio file</source>
        <translation>Audiodatei</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Lyrics editor</source>
        <translation>Liedtexteditor</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Liedtext</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close the preview</source>
        <translation>Vorschau schließen</translation>
    </message>
    <message>
        <source>Offset in seconds</source>
        <translation>Verschiebung in Sekunden</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>Line editor</source>
        <translation>Zeileneditor</translation>
    </message>
    <message>
        <source>Stamp</source>
        <translation>Stempeln</translation>
    </message>
    <message>
        <source>Play position</source>
        <translation>Abspielposition</translation>
    </message>
    <message>
        <source>Make the selected line the title</source>
        <translation>Die gewählte Zeile zum Titel machen</translation>
    </message>
    <message>
        <source>Make the selected line the artist</source>
        <translation>Die gewählte Zeile zum Interpreten machen</translation>
    </message>
    <message>
        <source>Make the selected line the album</source>
        <translation>Die gewählte Zeile zum Album machen</translation>
    </message>
    <message>
        <source>Make the selected line the one who edited the lyric</source>
        <translation>Die gewählte Zeile zum Bearbeiter des Liedtexts machen</translation>
    </message>
    <message>
        <source>Edited by</source>
        <translation>Bearbeitet von</translation>
    </message>
    <message>
        <source>Untag</source>
        <translation>Lösen</translation>
    </message>
    <message>
        <source>Take the times and tags off all lines</source>
        <translation>Zeiten und Angaben von allen Zeilen nehmen</translation>
    </message>
    <message>
        <source>Untag all</source>
        <translation>Alle lösen</translation>
    </message>
    <message>
        <source>Shift the times of all lines</source>
        <translation>Die Zeiten aller Zeilen verschieben</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>Go back to the lyric as it was loaded</source>
        <translation>Zum Liedtext zurückkehren, wie er geladen wurde</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Lyric lines</source>
        <translation>Liedzeilen</translation>
    </message>
    <message>
        <source>The line that is heard now</source>
        <translation>Die Zeile, die gerade zu hören ist</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>More commands</source>
        <translation>Weitere Befehle</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>%1 rückgängig machen</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>%1 wiederholen</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Merkmal</translation>
    </message>
    <message>
        <source>edit time</source>
        <translation>Änderung der Zeit</translation>
    </message>
    <message>
        <source>edit text</source>
        <translation>Änderung des Textes</translation>
    </message>
    <message>
        <source>Set offset of the time labels of the selected lines: (positive forward, negative backward)</source>
        <translation>Zeiten der ausgewählten Zeilen verschieben (positiv: später, negativ: früher)</translation>
    </message>
    <message>
        <source>offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>offset of selected lines</source>
        <translation>Versatz der ausgewählten Zeilen</translation>
    </message>
    <message>
        <source>1 time would have been before the start: it is 00:00.00 now.</source>
        <translation>1 Zeit läge vor dem Anfang: sie ist jetzt 00:00.00.</translation>
    </message>
    <message>
        <source>%1 times would have been before the start: they are 00:00.00 now.</source>
        <translation>%1 Zeiten lägen vor dem Anfang: sie sind jetzt 00:00.00.</translation>
    </message>
    <message>
        <source>stamp</source>
        <translation>Zeitstempel</translation>
    </message>
    <message>
        <source>new line</source>
        <translation>neue Zeile</translation>
    </message>
    <message>
        <source>nudge</source>
        <translation>Verschieben der Zeit</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>paste text</source>
        <translation>Einfügen von Text</translation>
    </message>
    <message>
        <source>There is no text on the clipboard.</source>
        <translation>In der Zwischenablage ist kein Text.</translation>
    </message>
    <message>
        <source>drop text</source>
        <translation>Ablegen von Text</translation>
    </message>
    <message>
        <source>delete line</source>
        <translation>Löschen der Zeile</translation>
    </message>
    <message>
        <source>delete %1 lines</source>
        <translation>Löschen von %1 Zeilen</translation>
    </message>
    <message>
        <source>delete all lines</source>
        <translation>Löschen aller Zeilen</translation>
    </message>
    <message>
        <source>duplicate</source>
        <translation>Verdoppeln</translation>
    </message>
    <message>
        <source>move up</source>
        <translation>Bewegen nach oben</translation>
    </message>
    <message>
        <source>move down</source>
        <translation>Bewegen nach unten</translation>
    </message>
    <message>
        <source>merge</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>split</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>load lyric</source>
        <translation>Laden des Liedtextes</translation>
    </message>
    <message>
        <source>Open lyric file</source>
        <translation>Liedtextdatei öffnen</translation>
    </message>
    <message>
        <source>Lyrics (*.lrc *.txt);;All files (*)</source>
        <translation>Liedtexte (*.lrc *.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>This file was not opened.</source>
        <translation>Diese Datei wurde nicht geöffnet.</translation>
    </message>
    <message>
        <source>It is empty, cannot be read, or is not in UTF-8. Save it as UTF-8 and open it again.</source>
        <translation>Sie ist leer, nicht lesbar oder nicht in UTF-8. Speichern Sie sie als UTF-8 und öffnen Sie sie noch einmal.</translation>
    </message>
    <message>
        <source>The dropped lyric is here. Undo brings back the one before it.</source>
        <translation>Der abgelegte Liedtext ist da. Rückgängig bringt den vorigen zurück.</translation>
    </message>
    <message>
        <source>tag</source>
        <translation>Merkmal</translation>
    </message>
    <message>
        <source>untag</source>
        <translation>Entfernen der Zeiten</translation>
    </message>
    <message>
        <source>untag all</source>
        <translation>Entfernen aller Zeiten</translation>
    </message>
    <message>
        <source>restore</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>LRC source</source>
        <translation>LRC-Quelltext</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>typing</source>
        <translation>Tippen</translation>
    </message>
    <message>
        <source>Stamp · %1</source>
        <translation>Stempeln · %1</translation>
    </message>
    <message>
        <source>Show the LRC text in the place of the table</source>
        <translation>Zeigt den LRC-Text an der Stelle der Tabelle</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelltext</translation>
    </message>
    <message>
        <source>Stamp the play position onto the selected line and go to the next</source>
        <translation>Stempelt die Abspielposition auf die ausgewählte Zeile und geht zur nächsten</translation>
    </message>
    <message>
        <source>Take the times and tags off the selected lines</source>
        <translation>Entfernt Zeiten und Merkmale der ausgewählten Zeilen</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>“%1” is no lyric file (.lrc or .txt, in UTF-8).</source>
        <translation>„%1“ ist keine Liedtextdatei (.lrc oder .txt, in UTF-8).</translation>
    </message>
    <message>
        <source>“%1” is here. Undo brings back the lyric before it.</source>
        <translation>„%1“ ist da. Rückgängig bringt den Liedtext davor zurück.</translation>
    </message>
    <message>
        <source>The times are %1 s later now.</source>
        <translation>Die Zeiten sind jetzt %1 s später.</translation>
    </message>
    <message>
        <source>The times are %1 s earlier now.</source>
        <translation>Die Zeiten sind jetzt %1 s früher.</translation>
    </message>
    <message>
        <source>No lines were copied here. %1 makes lines of the text on the clipboard.</source>
        <translation>Hier wurden keine Zeilen kopiert. %1 macht aus dem Text der Zwischenablage Zeilen.</translation>
    </message>
    <message>
        <source>A line is split at the caret: edit its text first.</source>
        <translation>Geteilt wird an der Schreibmarke: erst den Text bearbeiten.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search for the lyric</source>
        <translation>Liedtext suchen</translation>
    </message>
    <message>
        <source>Search for the lyric of this song</source>
        <translation>Den Liedtext dieses Stücks suchen</translation>
    </message>
    <message>
        <source>search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Show the finished lyric while it plays</source>
        <translation>Zeigt den fertigen Liedtext zur Wiedergabe</translation>
    </message>
    <message>
        <source>Align left</source>
        <translation>Linksbündig</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Zentriert</translation>
    </message>
    <message>
        <source>Align right</source>
        <translation>Rechtsbündig</translation>
    </message>
    <message>
        <source>Show the tag lines</source>
        <translation>Zeilen mit Merkmalen zeigen</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
</context>
</TS>
