<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>tags</name>
    <message>
        <source>The file could not be written, and is as it was. (%1)</source>
        <translation>Die Datei konnte nicht geschrieben werden und ist, wie sie war. (%1)</translation>
    </message>
    <message>
        <source>Another program is saving the file at this moment, so it was left alone. Try again when it is done.</source>
        <translation>Ein anderes Programm speichert gerade die Datei, daher blieb sie, wie sie war. Versuchen Sie es noch einmal, wenn es fertig ist.</translation>
    </message>
    <message>
        <source>Another lyric field of the file, %1, says something else now.</source>
        <translation>Ein anderes Liedtextfeld der Datei, %1, sagt jetzt etwas anderes.</translation>
    </message>
    <message>
        <source>The lyric stands in a new tag; title and artist stand in an older ID3 tag alone, which some players do not show now. A tag editor can copy them.</source>
        <translation>Der Liedtext steht in einem neuen Tag; Titel und Interpret stehen nur in einem älteren ID3-Tag, das manche Abspielprogramme nun nicht zeigen. Ein Tag-Editor kann sie übertragen.</translation>
    </message>
    <message>
        <source>The sizes that the file tells of its parts do not fit the file: it is damaged, or the program that wrote it never finished it, so it cannot be saved safely. Convert it with an audio program.</source>
        <translation>Die Größen, die die Datei für ihre Teile angibt, passen nicht zur Datei: Sie ist beschädigt oder wurde von dem Programm, das sie schrieb, nie abgeschlossen und kann daher nicht sicher gespeichert werden. Konvertieren Sie sie mit einem Audioprogramm.</translation>
    </message>
    <message>
        <source>The file is not there. (%1)</source>
        <translation>Die Datei ist nicht da. (%1)</translation>
    </message>
    <message>
        <source>You do not have permission: the file could not be %1. (%2)</source>
        <translation>Sie haben nicht das Recht dazu: Die Datei konnte nicht %1 werden. (%2)</translation>
    </message>
    <message>
        <source>The file could not be %1. (%2)</source>
        <translation>Die Datei konnte nicht %1 werden. (%2)</translation>
    </message>
    <message>
        <source>read</source>
        <translation>gelesen</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>This is a folder. Choose an audio file.</source>
        <translation>Das ist ein Ordner. Wählen Sie eine Audiodatei.</translation>
    </message>
    <message>
        <source>This is not a file but a device or a pipe. Choose an audio file.</source>
        <translation>Das ist keine Datei, sondern ein Gerät oder eine Pipe. Wählen Sie eine Audiodatei.</translation>
    </message>
    <message>
        <source>The file is larger than 2 GiB, which is more than can be opened.</source>
        <translation>Die Datei ist größer als 2 GiB und lässt sich deshalb nicht öffnen.</translation>
    </message>
    <message>
        <source>The file was changed while it was read. Try again.</source>
        <translation>Die Datei wurde geändert, während sie gelesen wurde. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The file could not be read to its end.</source>
        <translation>Die Datei konnte nicht bis zum Ende gelesen werden.</translation>
    </message>
    <message>
        <source>The file is empty. Choose an audio file.</source>
        <translation>Die Datei ist leer. Wählen Sie eine Audiodatei.</translation>
    </message>
    <message>
        <source>This kind of file cannot be read.</source>
        <translation>Dateien dieser Art lassen sich nicht lesen.</translation>
    </message>
    <message>
        <source>This is not an audio file, whatever its name says. Choose an MP3, M4A, FLAC, Ogg, Opus, WAV, AIFF, AAC, WMA, APE or WavPack file.</source>
        <translation>Das ist keine Audiodatei, was auch immer der Name sagt. Wählen Sie eine MP3-, M4A-, FLAC-, Ogg-, Opus-, WAV-, AIFF-, AAC-, WMA-, APE- oder WavPack-Datei.</translation>
    </message>
    <message>
        <source>Files of this kind (%1) cannot be opened. Choose an MP3, M4A, FLAC, Ogg, Opus, WAV, AIFF, AAC, WMA, APE or WavPack file.</source>
        <translation>Dateien dieser Art (%1) lassen sich nicht öffnen. Wählen Sie eine MP3-, M4A-, FLAC-, Ogg-, Opus-, WAV-, AIFF-, AAC-, WMA-, APE- oder WavPack-Datei.</translation>
    </message>
    <message>
        <source>RIFF, but no WAV at the start of the file</source>
        <translation>RIFF, aber am Anfang der Datei kein WAV</translation>
    </message>
    <message>
        <source>RF64, which is WAV beyond 4 GiB</source>
        <translation>RF64, das ist WAV über 4 GiB</translation>
    </message>
    <message>
        <source>BW64, which is WAV beyond 4 GiB</source>
        <translation>BW64, das ist WAV über 4 GiB</translation>
    </message>
    <message>
        <source>IFF, but no AIFF at the start of the file</source>
        <translation>IFF, aber am Anfang der Datei kein AIFF</translation>
    </message>
    <message>
        <source>AAC in ADIF</source>
        <translation>AAC im ADIF-Format</translation>
    </message>
    <message>
        <source>The Ogg file is damaged or incomplete.</source>
        <translation>Die Ogg-Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The Ogg file holds no Vorbis, Opus, Speex or FLAC sound.</source>
        <translation>Die Ogg-Datei enthält keinen Ton in Vorbis, Opus, Speex oder FLAC.</translation>
    </message>
    <message>
        <source>The file takes too much reading to be opened safely.</source>
        <translation>Die Datei zu lesen ist so aufwendig, dass sie sich nicht sicher öffnen lässt.</translation>
    </message>
    <message>
        <source>The file is damaged or incomplete, so its tags cannot be read.</source>
        <translation>Die Datei ist beschädigt oder unvollständig; ihre Tags lassen sich nicht lesen.</translation>
    </message>
    <message>
        <source>The lyrics of the file would have more than 6 MiB together, which is more than can be kept.</source>
        <translation>Die Liedtexte der Datei wären zusammen größer als 6 MiB und lassen sich deshalb nicht aufbewahren.</translation>
    </message>
    <message>
        <source>The file has more than 1,000 lyrics, which no program writes: it cannot be read safely.</source>
        <translation>Die Datei hat mehr als 1.000 Liedtexte, was kein Programm schreibt: Sie lässt sich nicht sicher lesen.</translation>
    </message>
    <message>
        <source>The file's ID3 tag %1, which cannot be read safely.</source>
        <translation>Das ID3-Tag der Datei %1 und lässt sich deshalb nicht sicher lesen.</translation>
    </message>
    <message>
        <source>holds hundreds of thousands of times</source>
        <translation>enthält Hunderttausende von Zeiten</translation>
    </message>
    <message>
        <source>inflates to more than 16 MiB</source>
        <translation>wird ausgepackt größer als 16 MiB</translation>
    </message>
    <message>
        <source>is nested without end</source>
        <translation>ist endlos verschachtelt</translation>
    </message>
    <message>
        <source>The file's ID3 tag is longer than the place it stands in: the file is damaged or incomplete.</source>
        <translation>Das ID3-Tag der Datei ist länger als der Platz, an dem es steht: Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The file's ID3 tag is larger than 32 MiB, which is more than can be read.</source>
        <translation>Das ID3-Tag der Datei ist größer als 32 MiB und lässt sich deshalb nicht lesen.</translation>
    </message>
    <message>
        <source>The file's ID3 tag is compressed in a way that cannot be read.</source>
        <translation>Das ID3-Tag der Datei ist auf eine Weise gepackt, die sich nicht lesen lässt.</translation>
    </message>
    <message>
        <source>The tag of the file has hundreds of thousands of entries, which cannot be read safely.</source>
        <translation>Das Tag der Datei hat Hunderttausende von Einträgen und lässt sich deshalb nicht sicher lesen.</translation>
    </message>
    <message>
        <source>The lyric is too long for this kind of file.</source>
        <translation>Der Liedtext ist zu lang für Dateien dieser Art.</translation>
    </message>
    <message>
        <source>The lyric has no line with a time, so it cannot be kept as a synchronised one.</source>
        <translation>Der Liedtext hat keine Zeile mit einer Zeit und lässt sich deshalb nicht als zeitlich abgestimmter aufbewahren.</translation>
    </message>
    <message>
        <source>The lyric is too long to be kept as a synchronised one.</source>
        <translation>Der Liedtext ist zu lang, um als zeitlich abgestimmter aufbewahrt zu werden.</translation>
    </message>
    <message>
        <source>The file's synchronised lyric counts its times in frames of sound, and some of the new times lie between two of them. Save the lyric in another field.</source>
        <translation>Der zeitlich abgestimmte Liedtext der Datei zählt seine Zeiten in Rahmen des Tons, und einige der neuen Zeiten liegen zwischen zwei Rahmen. Speichern Sie den Liedtext in einem anderen Feld.</translation>
    </message>
    <message>
        <source>The file does not begin with its tag but with something else, so it cannot be edited without hiding that tag.</source>
        <translation>Die Datei beginnt nicht mit ihrem Tag, sondern mit etwas anderem; sie lässt sich nicht bearbeiten, ohne dass dieses Tag verdeckt würde.</translation>
    </message>
    <message>
        <source>The file ends before its sound begins: it is damaged or incomplete.</source>
        <translation>Die Datei endet, bevor ihr Ton beginnt: Sie ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The file has an APE tag of the first version, which can be read but not written.</source>
        <translation>Die Datei hat ein APE-Tag der ersten Fassung, das sich lesen, aber nicht schreiben lässt.</translation>
    </message>
    <message>
        <source>The file's APE tag says that it is not to be changed.</source>
        <translation>Das APE-Tag der Datei sagt, dass es nicht geändert werden soll.</translation>
    </message>
    <message>
        <source>The items of the APE tag at the end of the file do not fit together: the file is damaged.</source>
        <translation>Die Einträge des APE-Tags am Ende der Datei passen nicht zueinander: Die Datei ist beschädigt.</translation>
    </message>
    <message>
        <source>The APE tag at the end of the file is too large to be read safely.</source>
        <translation>Das APE-Tag am Ende der Datei ist zu groß, um sicher gelesen zu werden.</translation>
    </message>
    <message>
        <source>The APE tag at the end of the file is of an unknown version.</source>
        <translation>Das APE-Tag am Ende der Datei ist von einer unbekannten Fassung.</translation>
    </message>
    <message>
        <source>The lyric is too long for this file, whose tag holds 16 MiB.</source>
        <translation>Der Liedtext ist zu lang für diese Datei, deren Tag 16 MiB fasst.</translation>
    </message>
    <message>
        <source>The parts of the WMA file's header do not fit together: the file is damaged or incomplete.</source>
        <translation>Die Teile des Kopfes der WMA-Datei passen nicht zueinander: Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The WMA file's header has too many parts to be read safely.</source>
        <translation>Der Kopf der WMA-Datei hat zu viele Teile, um sicher gelesen zu werden.</translation>
    </message>
    <message>
        <source>The WMA file has no room for one more field.</source>
        <translation>In der WMA-Datei ist kein Platz für ein weiteres Feld.</translation>
    </message>
    <message>
        <source>The lyric is too long for this WMA file: its header would exceed 32 MiB.</source>
        <translation>Der Liedtext ist zu lang für diese WMA-Datei: Ihr Kopf würde größer als 32 MiB.</translation>
    </message>
    <message>
        <source>The lyric is too long for this WMA file, whose header has no place for texts of more than 32,766 characters.</source>
        <translation>Der Liedtext ist zu lang für diese WMA-Datei, deren Kopf keinen Platz für Texte von mehr als 32.766 Zeichen hat.</translation>
    </message>
    <message>
        <source>The WMA file is signed by its author, which a change of the lyric would make void.</source>
        <translation>Die WMA-Datei ist von ihrem Urheber signiert; ein anderer Liedtext machte die Signatur ungültig.</translation>
    </message>
    <message>
        <source>The blocks at the start of the FLAC file do not fit together: the file is damaged or incomplete.</source>
        <translation>Die Blöcke am Anfang der FLAC-Datei passen nicht zueinander: Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The lyric is too long for a FLAC file, whose comments hold 16 MiB.</source>
        <translation>Der Liedtext ist zu lang für eine FLAC-Datei, deren Kommentare 16 MiB fassen.</translation>
    </message>
    <message>
        <source>The lyric is too long for a FLAC stream, whose comments hold 16 MiB.</source>
        <translation>Der Liedtext ist zu lang für einen FLAC-Strom, dessen Kommentare 16 MiB fassen.</translation>
    </message>
    <message>
        <source>The pages of the Ogg file do not fit together: the file is damaged or incomplete.</source>
        <translation>Die Seiten der Ogg-Datei passen nicht zueinander: Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The Ogg file holds several streams side by side, which cannot be edited here.</source>
        <translation>Die Ogg-Datei enthält mehrere Ströme nebeneinander, was sich hier nicht bearbeiten lässt.</translation>
    </message>
    <message>
        <source>The sound of the Ogg file is split into more than a million pages, which cannot be written safely.</source>
        <translation>Der Ton der Ogg-Datei ist auf mehr als eine Million Seiten verteilt, was sich nicht sicher schreiben lässt.</translation>
    </message>
    <message>
        <source>The tags of the Ogg file are larger than 24 MiB, which is more than can be read.</source>
        <translation>Die Tags der Ogg-Datei sind größer als 24 MiB und lassen sich deshalb nicht lesen.</translation>
    </message>
    <message>
        <source>The parts of the MP4 file do not fit together: the file is damaged or incomplete.</source>
        <translation>Die Teile der MP4-Datei passen nicht zueinander: Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The MP4 file is nested too deeply or split into too many parts to be read safely.</source>
        <translation>Die MP4-Datei ist zu tief verschachtelt oder in zu viele Teile zerlegt, um sicher gelesen zu werden.</translation>
    </message>
    <message>
        <source>The MP4 file says of its sound that it lies in millions of pieces, which cannot be read safely.</source>
        <translation>Die MP4-Datei sagt von ihrem Ton, dass er in Millionen von Stücken liegt, was sich nicht sicher lesen lässt.</translation>
    </message>
    <message>
        <source>The MP4 file is split into fragments with an index of its own, which cannot be edited here.</source>
        <translation>Die MP4-Datei ist in Fragmente mit eigenem Verzeichnis zerlegt, was sich hier nicht bearbeiten lässt.</translation>
    </message>
    <message>
        <source>The lyric is too long for this MP4 file.</source>
        <translation>Der Liedtext ist zu lang für diese MP4-Datei.</translation>
    </message>
    <message>
        <source>The MP4 file has no place for tags: it cannot hold a lyric.</source>
        <translation>Die MP4-Datei hat keinen Platz für Tags: Sie kann keinen Liedtext aufnehmen.</translation>
    </message>
    <message>
        <source>The MP4 file keeps its tags in a form that cannot be edited here.</source>
        <translation>Die MP4-Datei hat ihre Tags in einer Form, die sich hier nicht bearbeiten lässt.</translation>
    </message>
    <message>
        <source>The MP4 file is encrypted or holds more than sound, in a form that cannot be edited here.</source>
        <translation>Die MP4-Datei ist verschlüsselt oder enthält mehr als Ton, in einer Form, die sich hier nicht bearbeiten lässt.</translation>
    </message>
    <message>
        <source>The tags of the MP4 file are larger than 32 MiB, which is more than can be read.</source>
        <translation>Die Tags der MP4-Datei sind größer als 32 MiB und lassen sich deshalb nicht lesen.</translation>
    </message>
    <message>
        <source>The file has more than 10,000 parts, which cannot be read safely.</source>
        <translation>Die Datei hat mehr als 10.000 Teile und lässt sich deshalb nicht sicher lesen.</translation>
    </message>
    <message>
        <source>The file would grow beyond 4 GiB, which this kind of file cannot.</source>
        <translation>Die Datei würde größer als 4 GiB, was bei Dateien dieser Art nicht geht.</translation>
    </message>
    <message>
        <source>The part of the file that is for its tag holds something else, which cannot be read safely.</source>
        <translation>Der Teil der Datei, der für ihr Tag da ist, enthält etwas anderes und lässt sich deshalb nicht sicher lesen.</translation>
    </message>
    <message>
        <source>A part of the file that holds a few words takes megabytes, which cannot be read safely.</source>
        <translation>Ein Teil der Datei, der ein paar Wörter enthält, belegt Megabytes und lässt sich deshalb nicht sicher lesen.</translation>
    </message>
    <message>
        <source>The lyric holds bytes that are no text in UTF-8, which %1 cannot store. They show as replacement marks.</source>
        <translation>Der Liedtext enthält Bytes, die kein Text in UTF-8 sind und in %1 nicht gespeichert werden können. Sie erscheinen als Ersatzzeichen.</translation>
    </message>
    <message>
        <source>an APE tag</source>
        <translation>einem APE-Tag</translation>
    </message>
    <message>
        <source>an ID3 tag</source>
        <translation>einem ID3-Tag</translation>
    </message>
    <message>
        <source>a WMA file</source>
        <translation>einer WMA-Datei</translation>
    </message>
    <message>
        <source>The lyric holds a NUL character, which other programs take for its end. Take it out, then save again.</source>
        <translation>Der Liedtext enthält ein NUL-Zeichen, das andere Programme für sein Ende halten. Nehmen Sie es heraus und speichern Sie noch einmal.</translation>
    </message>
    <message>
        <source>The field holds timed lines alone, and the lyric has none. Choose another field, or give the lines times.</source>
        <translation>Das Feld nimmt nur Zeilen mit Zeiten auf, und der Liedtext hat keine. Wählen Sie ein anderes Feld, oder geben Sie den Zeilen Zeiten.</translation>
    </message>
    <message>
        <source>Another field of the file, %1, would be read as its lyric from now on, because this one has no times. Take that field out first (lrctool fields --clear), or give a line a time.</source>
        <translation>Ein anderes Feld der Datei, %1, würde von nun an als ihr Liedtext gelesen, weil dieser keine Zeiten hat. Nehmen Sie jenes Feld zuerst heraus (lrctool fields --clear), oder geben Sie einer Zeile eine Zeit.</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>There are several fields called %1; choose one by its number. It has %2; it can get %3.</source>
        <translation>Es gibt mehrere Felder namens %1; wählen Sie eines mit seiner Nummer. Vorhanden: %2; möglich: %3.</translation>
    </message>
    <message>
        <source>The file has no field called %1. It has %2; it can get %3.</source>
        <translation>Die Datei hat kein Feld namens %1. Vorhanden: %2; möglich: %3.</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
    <message>
        <source>The file was left alone, because saving would have changed %1. Its structure is unusual or damaged.</source>
        <translation>Die Datei blieb, wie sie war, denn das Speichern hätte %1 geändert. Ihr Aufbau ist ungewöhnlich oder beschädigt.</translation>
    </message>
    <message>
        <source>more than its lyric</source>
        <translation>mehr als ihren Liedtext</translation>
    </message>
    <message>
        <source>the lyric itself</source>
        <translation>den Liedtext selbst</translation>
    </message>
    <message>
        <source>another of its tags</source>
        <translation>ein anderes ihrer Tags</translation>
    </message>
    <message>
        <source>its sound</source>
        <translation>ihren Ton</translation>
    </message>
    <message>
        <source>how other programs read it</source>
        <translation>die Art, wie andere Programme sie lesen,</translation>
    </message>
    <message>
        <source>The file could not be read to its end, so it was left alone.</source>
        <translation>Die Datei konnte nicht bis zum Ende gelesen werden und blieb, wie sie war.</translation>
    </message>
    <message>
        <source>Another program changed the file meanwhile, so it was left alone. Open it again to see its lyric.</source>
        <translation>Ein anderes Programm hat die Datei inzwischen geändert; sie blieb, wie sie war. Öffnen Sie sie noch einmal, um ihren Liedtext zu sehen.</translation>
    </message>
    <message>
        <source>Another program changed the file since it was opened, so it was left alone. Open it again to see its lyric.</source>
        <translation>Ein anderes Programm hat die Datei geändert, seit sie geöffnet wurde; sie blieb, wie sie war. Öffnen Sie sie noch einmal, um ihren Liedtext zu sehen.</translation>
    </message>
    <message>
        <source>Another program is changing the file, so it was left alone. Save again when it is done.</source>
        <translation>Ein anderes Programm ändert gerade die Datei; sie blieb, wie sie war. Speichern Sie noch einmal, wenn es fertig ist.</translation>
    </message>
    <message>
        <source>Another program changed the file meanwhile, so it was left alone. Try again.</source>
        <translation>Ein anderes Programm hat die Datei inzwischen geändert; sie blieb, wie sie war. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The file would grow beyond 2 GiB with this lyric, which is more than could be opened again.</source>
        <translation>Die Datei würde mit diesem Liedtext größer als 2 GiB und ließe sich nicht wieder öffnen.</translation>
    </message>
    <message>
        <source>The file is read-only. Allow writing to it in its properties, then save again.</source>
        <translation>Die Datei ist schreibgeschützt. Erlauben Sie in ihren Eigenschaften das Schreiben und speichern Sie noch einmal.</translation>
    </message>
    <message>
        <source>The folder of the file does not allow new files in it, which saving safely needs. (%1)</source>
        <translation>Der Ordner der Datei lässt keine neuen Dateien zu, die es zum sicheren Speichern braucht. (%1)</translation>
    </message>
    <message>
        <source>There is a file of that name already.</source>
        <translation>Eine Datei dieses Namens gibt es schon.</translation>
    </message>
    <message>
        <source>The lyric is saved, but the system could not say whether it would survive a power failure now. (%1)</source>
        <translation>Der Liedtext ist gespeichert, aber das System konnte nicht sagen, ob er einen Stromausfall jetzt überstünde. (%1)</translation>
    </message>
    <message>
        <source>The file has another name (a hard link), under which the old version stays.</source>
        <translation>Die Datei hat einen weiteren Namen (einen harten Link), unter dem die alte Fassung bleibt.</translation>
    </message>
    <message>
        <source>Saving was cancelled. The file is as it was.</source>
        <translation>Das Speichern wurde abgebrochen. Die Datei ist, wie sie war.</translation>
    </message>
    <message>
        <source>The lyric could not be saved, and the file is as it was. (%1)</source>
        <translation>Der Liedtext konnte nicht gespeichert werden, und die Datei ist, wie sie war. (%1)</translation>
    </message>
    <message>
        <source>std::bad_alloc</source>
        <translation>Der Arbeitsspeicher reicht nicht</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Das ist nicht erlaubt</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Ordner nicht gefunden</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Fehler beim Lesen oder Schreiben des Datenträgers</translation>
    </message>
    <message>
        <source>No such device or address</source>
        <translation>Kein solches Gerät und keine solche Adresse</translation>
    </message>
    <message>
        <source>Resource temporarily unavailable</source>
        <translation>Das ist im Augenblick nicht möglich</translation>
    </message>
    <message>
        <source>Cannot allocate memory</source>
        <translation>Der Arbeitsspeicher reicht nicht</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Device or resource busy</source>
        <translation>Das Gerät oder die Datei ist belegt</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>Die Datei gibt es schon</translation>
    </message>
    <message>
        <source>Invalid cross-device link</source>
        <translation>Ungültige Verknüpfung über Geräte hinweg</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>Kein solches Gerät</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>Das ist kein Ordner</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>Das ist ein Ordner</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Ungültige Angabe</translation>
    </message>
    <message>
        <source>Too many open files in system</source>
        <translation>Zu viele offene Dateien im System</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Zu viele offene Dateien</translation>
    </message>
    <message>
        <source>Text file busy</source>
        <translation>Die Programmdatei läuft gerade</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>Die Datei ist zu groß</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Auf dem Datenträger ist kein Platz mehr</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>Der Datenträger lässt sich nur lesen</translation>
    </message>
    <message>
        <source>Too many links</source>
        <translation>Zu viele Verknüpfungen</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>Der Dateiname ist zu lang</translation>
    </message>
    <message>
        <source>Too many levels of symbolic links</source>
        <translation>Zu viele symbolische Verknüpfungen hintereinander</translation>
    </message>
    <message>
        <source>Value too large for defined data type</source>
        <translation>Der Wert ist zu groß für seinen Datentyp</translation>
    </message>
    <message>
        <source>Interrupted system call</source>
        <translation>Der Aufruf wurde unterbrochen</translation>
    </message>
    <message>
        <source>Function not implemented</source>
        <translation>Das kann dieses System nicht</translation>
    </message>
    <message>
        <source>Operation not supported</source>
        <translation>Das wird nicht unterstützt</translation>
    </message>
    <message>
        <source>Connection timed out</source>
        <translation>Die Wartezeit ist abgelaufen</translation>
    </message>
    <message>
        <source>Connection reset by peer</source>
        <translation>Die Gegenseite hat die Verbindung beendet</translation>
    </message>
    <message>
        <source>Software caused connection abort</source>
        <translation>Die Verbindung wurde abgebrochen</translation>
    </message>
    <message>
        <source>Transport endpoint is not connected</source>
        <translation>Es besteht keine Verbindung</translation>
    </message>
    <message>
        <source>Host is down</source>
        <translation>Der Rechner ist ausgeschaltet</translation>
    </message>
    <message>
        <source>No route to host</source>
        <translation>Der Rechner ist nicht erreichbar</translation>
    </message>
    <message>
        <source>Network is unreachable</source>
        <translation>Das Netz ist nicht erreichbar</translation>
    </message>
    <message>
        <source>Network is down</source>
        <translation>Das Netz ist ausgefallen</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>Die Datei gibt es auf dem Server nicht mehr</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>Der Speicherplatz, der Ihnen zusteht, ist aufgebraucht</translation>
    </message>
    <message>
        <source>Remote I/O error</source>
        <translation>Fehler beim Lesen oder Schreiben auf dem Server</translation>
    </message>
    <message>
        <source>Required key not available</source>
        <translation>Der Schlüssel dafür fehlt</translation>
    </message>
    <message>
        <source>Structure needs cleaning</source>
        <translation>Das Dateisystem ist beschädigt</translation>
    </message>
    <message>
        <source>No medium found</source>
        <translation>Kein Datenträger eingelegt</translation>
    </message>
    <message>
        <source>No locks available</source>
        <translation>Keine Sperren mehr verfügbar</translation>
    </message>
    <message>
        <source>Bad file descriptor</source>
        <translation>Die Datei ist nicht offen</translation>
    </message>
    <message>
        <source>Bad message</source>
        <translation>Die Daten sind beschädigt</translation>
    </message>
    <message>
        <source>Protocol error</source>
        <translation>Fehler im Protokoll</translation>
    </message>
    <message>
        <source>Directory not empty</source>
        <translation>Der Ordner ist nicht leer</translation>
    </message>
    <message>
        <source>Invalid or incomplete multibyte or wide character</source>
        <translation>Ungültige Zeichen</translation>
    </message>
</context>
</TS>
