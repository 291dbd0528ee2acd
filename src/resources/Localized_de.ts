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
        <source>Stamp the play position onto the selected line and go to the next (Enter)</source>
        <translation>Die Abspielposition auf die gewählte Zeile stempeln und zur nächsten gehen (Eingabetaste)</translation>
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
        <source>Stamp · Enter</source>
        <translation>Stempeln · Eingabe</translation>
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
        <source>Take the times and tags off the selected lines (Delete)</source>
        <translation>Zeiten und Angaben von den gewählten Zeilen nehmen (Entf)</translation>
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
</context>
</TS>
