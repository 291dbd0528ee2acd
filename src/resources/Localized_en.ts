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
    <message>
        <source>Offset in seconds</source>
        <translation>Offset in seconds</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>seconds</translation>
    </message>
    <message>
        <source>Line editor</source>
        <translation>Line editor</translation>
    </message>
    <message>
        <source>Stamp the play position onto the selected line and go to the next (Enter)</source>
        <translation>Stamp the play position onto the selected line and go to the next (Enter)</translation>
    </message>
    <message>
        <source>Stamp</source>
        <translation>Stamp</translation>
    </message>
    <message>
        <source>Play position</source>
        <translation>Play position</translation>
    </message>
    <message>
        <source>Stamp · Enter</source>
        <translation>Stamp · Enter</translation>
    </message>
    <message>
        <source>Make the selected line the title</source>
        <translation>Make the selected line the title</translation>
    </message>
    <message>
        <source>Make the selected line the artist</source>
        <translation>Make the selected line the artist</translation>
    </message>
    <message>
        <source>Make the selected line the album</source>
        <translation>Make the selected line the album</translation>
    </message>
    <message>
        <source>Make the selected line the one who edited the lyric</source>
        <translation>Make the selected line the one who edited the lyric</translation>
    </message>
    <message>
        <source>Edited by</source>
        <translation>Edited by</translation>
    </message>
    <message>
        <source>Take the times and tags off the selected lines (Delete)</source>
        <translation>Take the times and tags off the selected lines (Delete)</translation>
    </message>
    <message>
        <source>Untag</source>
        <translation>Untag</translation>
    </message>
    <message>
        <source>Take the times and tags off all lines</source>
        <translation>Take the times and tags off all lines</translation>
    </message>
    <message>
        <source>Untag all</source>
        <translation>Untag all</translation>
    </message>
    <message>
        <source>Shift the times of all lines</source>
        <translation>Shift the times of all lines</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Offset</translation>
    </message>
    <message>
        <source>Go back to the lyric as it was loaded</source>
        <translation>Go back to the lyric as it was loaded</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>Lyric lines</source>
        <translation>Lyric lines</translation>
    </message>
    <message>
        <source>The line that is heard now</source>
        <translation>The line that is heard now</translation>
    </message>
    <message>
        <source>More</source>
        <translation>More</translation>
    </message>
    <message>
        <source>More commands</source>
        <translation>More commands</translation>
    </message>
</context>
</TS>
