<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>desk::StatusWork</name>
    <message>
        <source>Cancel (Esc)</source>
        <translation>Abbrechen (Esc)</translation>
    </message>
</context>
<context>
    <name>desk::DeskSaving</name>
    <message>
        <source>Saving</source>
        <translation>Speichern läuft</translation>
    </message>
    <message>
        <source>Cancel saving</source>
        <translation>Das Speichern abbrechen</translation>
    </message>
    <message>
        <source>The song is being saved already.</source>
        <translation>Das Lied wird schon gespeichert.</translation>
    </message>
    <message>
        <source>Saving into %1…</source>
        <translation>Speichern in %1…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>desk::DeskSearch</name>
    <message>
        <source>Searching</source>
        <translation>Suche läuft</translation>
    </message>
    <message>
        <source>Cancel the search</source>
        <translation>Die Suche abbrechen</translation>
    </message>
    <message>
        <source>Searching…</source>
        <translation>Suche läuft …</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>Suche nach „%1“ …</translation>
    </message>
</context>
<context>
    <name>desk::DeskWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open song…</source>
        <translation>Lied ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open the &amp;demonstration song</source>
        <translation>Das &amp;Beispiellied öffnen</translation>
    </message>
    <message>
        <source>&amp;Save lyric into the song</source>
        <translation>Liedtext im Lied &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>Be&amp;enden</translation>
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
        <source>&amp;Playback</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;Play or pause</source>
        <translation>&amp;Wiedergabe oder Pause</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About lyricdesk</source>
        <translation>Ü&amp;ber lyricdesk</translation>
    </message>
    <message>
        <source>Open song</source>
        <translation>Lied öffnen</translation>
    </message>
    <message>
        <source>“%1” was not opened</source>
        <translation>„%1“ wurde nicht geöffnet</translation>
    </message>
    <message>
        <source>The demonstration song was not opened</source>
        <translation>Das Beispiellied wurde nicht geöffnet</translation>
    </message>
    <message>
        <source>There is no song to save into</source>
        <translation>Es ist kein Lied da, in dem gespeichert werden könnte</translation>
    </message>
    <message>
        <source>Open a song first: its file is where the lyric goes.</source>
        <translation>Öffnen Sie zuerst ein Lied: In seine Datei kommt der Liedtext.</translation>
    </message>
    <message>
        <source>The lyric was not saved into %1</source>
        <translation>Der Liedtext wurde nicht in %1 gespeichert</translation>
    </message>
    <message>
        <source>Saved into %1</source>
        <translation>In %1 gespeichert</translation>
    </message>
    <message>
        <source>The lyric of “%1” has changes that are not saved.</source>
        <translation>Der Liedtext von „%1“ hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>If you do not save them, they are lost.</source>
        <translation>Wenn Sie sie nicht speichern, gehen sie verloren.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Don't save</source>
        <translation>&amp;Nicht speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>The lyric that you wrote belongs to no song yet. Use it for “%1”?</source>
        <translation>Der Liedtext, den Sie geschrieben haben, gehört noch zu keinem Lied. Für „%1“ verwenden?</translation>
    </message>
    <message>
        <source>It goes into the file when you save.</source>
        <translation>Er kommt beim Speichern in die Datei.</translation>
    </message>
    <message>
        <source>When you save, it takes the place of the lyric that the file carries.</source>
        <translation>Beim Speichern tritt er an die Stelle des Liedtextes, den die Datei enthält.</translation>
    </message>
    <message>
        <source>&amp;Use it</source>
        <translation>&amp;Verwenden</translation>
    </message>
    <message>
        <source>&amp;Don't keep it</source>
        <translation>&amp;Nicht behalten</translation>
    </message>
    <message>
        <source>About lyricdesk</source>
        <translation>Über lyricdesk</translation>
    </message>
    <message>
        <source>lyricdesk %1

Writes time-synchronised lyrics into your songs. Press Enter as each line is sung.</source>
        <translation>lyricdesk %1

Schreibt zeitlich abgestimmte Liedtexte in Ihre Lieder. Drücken Sie die Eingabetaste, wenn eine Zeile gesungen wird.</translation>
    </message>
    <message>
        <source>No song</source>
        <translation>Kein Lied</translation>
    </message>
</context>
<context>
    <name>desk::LyricSearch</name>
    <message>
        <source>The lyric service could not be reached. Is this computer online?</source>
        <translation>Der Liedtextdienst ist nicht zu erreichen. Ist dieser Rechner mit dem Netz verbunden?</translation>
    </message>
    <message>
        <source>The answer of the lyric service broke off or cannot be read. Try again later.</source>
        <translation>Die Antwort des Liedtextdienstes brach ab oder ist nicht lesbar. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The lyric service did not answer in time. Try again later.</source>
        <translation>Der Liedtextdienst hat nicht rechtzeitig geantwortet. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The lyric service answered with more than a lyric can be; nothing was loaded.</source>
        <translation>Der Liedtextdienst antwortete mit mehr, als ein Liedtext sein kann; es wurde nichts geladen.</translation>
    </message>
    <message>
        <source>The lyric service led to an address that is not safe; nothing was loaded.</source>
        <translation>Der Liedtextdienst verwies auf eine unsichere Adresse; es wurde nichts geladen.</translation>
    </message>
    <message>
        <source>The lyric service could not prove who it is; nothing was loaded.</source>
        <translation>Der Liedtextdienst konnte sich nicht ausweisen; es wurde nichts geladen.</translation>
    </message>
    <message>
        <source>The lyric service refused the search (status %1).</source>
        <translation>Der Liedtextdienst hat die Suche abgelehnt (Status %1).</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1:%2 min</source>
        <translation>%1:%2 min</translation>
    </message>
    <message>
        <source>There is no song to search for. Open one first.</source>
        <translation>Es ist kein Lied da, nach dem gesucht werden könnte. Öffnen Sie zuerst eines.</translation>
    </message>
    <message>
        <source>The song's file has no title to search for.</source>
        <translation>Die Datei des Liedes enthält keinen Titel, nach dem gesucht werden könnte.</translation>
    </message>
    <message>
        <source>The address of the lyric service is not a safe one.</source>
        <translation>Die Adresse des Liedtextdienstes ist nicht sicher.</translation>
    </message>
    <message>
        <source>The lyric service asks to be left alone for a while. Try again in %1.</source>
        <translation>Der Liedtextdienst bittet um eine Pause. Versuchen Sie es in %1 noch einmal.</translation>
    </message>
    <message>
        <source>The lyric service answered with something that is no lyric; nothing was loaded.</source>
        <translation>Der Liedtextdienst antwortete mit etwas, das kein Liedtext ist; es wurde nichts geladen.</translation>
    </message>
    <message>
        <source>The lyric service is busy. Try again later.</source>
        <translation>Der Liedtextdienst ist überlastet. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The lyric service knows this song as one without words.</source>
        <translation>Der Liedtextdienst kennt dieses Lied als eines ohne Worte.</translation>
    </message>
    <message>
        <source>No lyric was found for this song.</source>
        <translation>Zu diesem Lied wurde kein Liedtext gefunden.</translation>
    </message>
    <message>
        <source>A lyric was found. Undo brings back the one before it.</source>
        <translation>Ein Liedtext wurde gefunden. „Rückgängig“ bringt den vorigen zurück.</translation>
    </message>
    <message>
        <source>A lyric without times was found. Undo brings back the one before it.</source>
        <translation>Ein Liedtext ohne Zeiten wurde gefunden. „Rückgängig“ bringt den vorigen zurück.</translation>
    </message>
    <message>
        <source>A lyric was found; its times are of a recording that is %1 longer. Undo brings back the lyric before it.</source>
        <translation>Ein Liedtext wurde gefunden; seine Zeiten gehören zu einer Aufnahme, die %1 länger ist. „Rückgängig“ bringt den vorigen zurück.</translation>
    </message>
    <message>
        <source>A lyric was found; its times are of a recording that is %1 shorter. Undo brings back the lyric before it.</source>
        <translation>Ein Liedtext wurde gefunden; seine Zeiten gehören zu einer Aufnahme, die %1 kürzer ist. „Rückgängig“ bringt den vorigen zurück.</translation>
    </message>
    <message>
        <source>The search was cancelled.</source>
        <translation>Die Suche wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>desk</name>
    <message>
        <source>The demonstration song could not be put into %1: %2. Open a song of your own instead.</source>
        <translation>Das Beispiellied konnte nicht in %1 abgelegt werden: %2. Öffnen Sie stattdessen ein eigenes Lied.</translation>
    </message>
    <message>
        <source>Songs (%1);;All files (*)</source>
        <translation>Lieder (%1);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Writes time-synchronised lyrics into your songs.</source>
        <translation>Schreibt zeitlich abgestimmte Liedtexte in Ihre Lieder.</translation>
    </message>
    <message>
        <source>The song to open; without one, the demonstration song.</source>
        <translation>Das Lied, das geöffnet wird; ohne Angabe das Beispiellied.</translation>
    </message>
    <message>
        <source>Search for lyrics at &lt;address&gt;, which answers as lrclib.net does: https, or http on this computer.</source>
        <translation>Sucht Liedtexte bei &lt;Adresse&gt;, die wie lrclib.net antwortet: https, oder http auf diesem Rechner.</translation>
    </message>
    <message>
        <source>address</source>
        <translation>Adresse</translation>
    </message>
</context>
<context>
    <name>media::Player</name>
    <message>
        <source>The file “%1” cannot be found.</source>
        <translation>Die Datei „%1“ ist nicht zu finden.</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>„%1“ ist keine Datei.</translation>
    </message>
    <message>
        <source>The file “%1” cannot be opened: reading it is not permitted.</source>
        <translation>Die Datei „%1“ lässt sich nicht öffnen: Sie darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file “%1” is empty.</source>
        <translation>Die Datei „%1“ ist leer.</translation>
    </message>
    <message>
        <source>“%1” is not an audio file.</source>
        <translation>„%1“ ist keine Audiodatei.</translation>
    </message>
    <message>
        <source>“%1” cannot be played because a decoder is not installed: %2.</source>
        <translation>„%1“ lässt sich nicht abspielen, weil ein Dekoder fehlt: %2.</translation>
    </message>
    <message>
        <source>The file “%1” cannot be read.</source>
        <translation>Die Datei „%1“ ist nicht lesbar.</translation>
    </message>
    <message>
        <source>“%1” cannot be played because the sound output does not work.</source>
        <translation>„%1“ lässt sich nicht abspielen, weil die Tonausgabe nicht arbeitet.</translation>
    </message>
    <message>
        <source>“%1” is damaged or in a form that cannot be played.</source>
        <translation>„%1“ ist beschädigt oder in einer Form, die sich nicht abspielen lässt.</translation>
    </message>
    <message>
        <source>Nothing can be played because parts of the multimedia library are not installed.</source>
        <translation>Es lässt sich nichts abspielen, weil Teile der Multimedia-Bibliothek nicht installiert sind.</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Num-Eingabe</translation>
    </message>
    <message>
        <source>PgUp</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>PgDown</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>←</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>→</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>↑</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>↓</translation>
    </message>
</context>
</TS>
