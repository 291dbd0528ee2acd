<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Localized</name>
    <message>
        <source>Lyric metadata found in original file, do you want to use this Lryic to perform editing?</source>
        <translation>Lyric metadata found in original file, do you want to use this Lryic to perform editing?</translation>
    </message>
    <message>
        <source>Confirm Use</source>
        <translation>Confirm Use</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Drag and drop the lyrics file here or</source>
        <translation>Drag and drop the lyrics file here or</translation>
    </message>
    <message>
        <source>Start with empty file</source>
        <translation>Start with empty file</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Open the help page</source>
        <translation>Open the help page</translation>
    </message>
    <message>
        <source>Please input the right time format[mm:ss.SS]!</source>
        <translation>Please input the right time format[mm:ss.SS]!</translation>
    </message>
    <message>
        <source>Time point %@</source>
        <translation>Time point %@</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Set offset of all time labels:(positive forward，negtive backward)</source>
        <translation>Set offset of all time labels:(positive forward，negtive backward)</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Apply</translation>
    </message>
    <message>
        <source>No tags have been entered yet. Please insert tags first and then preview the lyrics.</source>
        <translation>No tags have been entered yet. Please insert tags first and then preview the lyrics.</translation>
    </message>
    <message>
        <source>Drag Audio File Here!</source>
        <translation>Drag Audio File Here!</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Play</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play or pause this song</source>
        <translation>Play or pause this song</translation>
    </message>
    <message>
        <source>Position in the song</source>
        <translation>Position in the song</translation>
    </message>
    <message>
        <source>Go to another place in the song</source>
        <translation>Go to another place in the song</translation>
    </message>
    <message>
        <source>Position and length</source>
        <translation>Position and length</translation>
    </message>
    <message>
        <source>Cover picture</source>
        <translation>Cover picture</translation>
    </message>
    <message>
        <source>Audio file</source>
        <translation>Audio file</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Lyrics editor</source>
        <translation>Lyrics editor</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Lyrics</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Close the preview</source>
        <translation>Close the preview</translation>
    </message>
</context>
</TS>
