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
        <source>Stamp and stay</source>
        <translation>Stamp and stay</translation>
    </message>
    <message>
        <source>Up one line and play from it</source>
        <translation>Up one line and play from it</translation>
    </message>
    <message>
        <source>10 ms earlier</source>
        <translation>10 ms earlier</translation>
    </message>
    <message>
        <source>10 ms later</source>
        <translation>10 ms later</translation>
    </message>
    <message>
        <source>100 ms earlier</source>
        <translation>100 ms earlier</translation>
    </message>
    <message>
        <source>100 ms later</source>
        <translation>100 ms later</translation>
    </message>
    <message>
        <source>1 s earlier</source>
        <translation>1 s earlier</translation>
    </message>
    <message>
        <source>1 s later</source>
        <translation>1 s later</translation>
    </message>
    <message>
        <source>Play from this line</source>
        <translation>Play from this line</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Play or pause</translation>
    </message>
    <message>
        <source>Insert line before</source>
        <translation>Insert line before</translation>
    </message>
    <message>
        <source>Insert line after</source>
        <translation>Insert line after</translation>
    </message>
    <message>
        <source>Duplicate line</source>
        <translation>Duplicate line</translation>
    </message>
    <message>
        <source>Delete lines</source>
        <translation>Delete lines</translation>
    </message>
    <message>
        <source>Delete all lines</source>
        <translation>Delete all lines</translation>
    </message>
    <message>
        <source>Move lines up</source>
        <translation>Move lines up</translation>
    </message>
    <message>
        <source>Move lines down</source>
        <translation>Move lines down</translation>
    </message>
    <message>
        <source>Join with the next line</source>
        <translation>Join with the next line</translation>
    </message>
    <message>
        <source>Split at the text cursor</source>
        <translation>Split at the text cursor</translation>
    </message>
    <message>
        <source>Remove times and tags</source>
        <translation>Remove times and tags</translation>
    </message>
    <message>
        <source>Remove all times and tags</source>
        <translation>Remove all times and tags</translation>
    </message>
    <message>
        <source>Make this line the title</source>
        <translation>Make this line the title</translation>
    </message>
    <message>
        <source>Make this line the artist</source>
        <translation>Make this line the artist</translation>
    </message>
    <message>
        <source>Make this line the album</source>
        <translation>Make this line the album</translation>
    </message>
    <message>
        <source>Make this line the editor</source>
        <translation>Make this line the editor</translation>
    </message>
    <message>
        <source>Shift all times…</source>
        <translation>Shift all times…</translation>
    </message>
    <message>
        <source>Shift the selected times…</source>
        <translation>Shift the selected times…</translation>
    </message>
    <message>
        <source>Copy lines</source>
        <translation>Copy lines</translation>
    </message>
    <message>
        <source>Paste lines</source>
        <translation>Paste lines</translation>
    </message>
    <message>
        <source>Paste text as lines</source>
        <translation>Paste text as lines</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Select all</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Show the LRC text</source>
        <translation>Show the LRC text</translation>
    </message>
    <message>
        <source>Open lyric file…</source>
        <translation>Open lyric file…</translation>
    </message>
    <message>
        <source>Show all keys</source>
        <translation>Show all keys</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Times</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Playing</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Lines</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Editing</translation>
    </message>
    <message>
        <source>Lyric</source>
        <translation>Lyric</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Num Enter</source>
        <translation>Num Enter</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Ins</source>
        <translation>Ins</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Page up</source>
        <translation>Page up</translation>
    </message>
    <message>
        <source>Page down</source>
        <translation>Page down</translation>
    </message>
    <message>
        <source>Meta</source>
        <translation>Meta</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>%1 s earlier than the line above</source>
        <translation>%1 s earlier than the line above</translation>
    </message>
    <message>
        <source>%1 s later than the line below</source>
        <translation>%1 s later than the line below</translation>
    </message>
    <message>
        <source>The same text at the same time as the line above</source>
        <translation>The same text at the same time as the line above</translation>
    </message>
    <message>
        <source>This time stands on the line twice</source>
        <translation>This time stands on the line twice</translation>
    </message>
    <message>
        <source>More than three lines at the same time</source>
        <translation>More than three lines at the same time</translation>
    </message>
    <message>
        <source>Nothing comes for %1 s after this line</source>
        <translation>Nothing comes for %1 s after this line</translation>
    </message>
    <message>
        <source>Past the end of the song (%1)</source>
        <translation>Past the end of the song (%1)</translation>
    </message>
    <message>
        <source>Empty, like the line above</source>
        <translation>Empty, like the line above</translation>
    </message>
    <message>
        <source>Empty %1 s after the line above</source>
        <translation>Empty %1 s after the line above</translation>
    </message>
    <message>
        <source>Empty only %1 s before the next line</source>
        <translation>Empty only %1 s before the next line</translation>
    </message>
    <message>
        <source>Keys of the editor</source>
        <translation>Keys of the editor</translation>
    </message>
    <message>
        <source>Search for a command or a key</source>
        <translation>Search for a command or a key</translation>
    </message>
    <message>
        <source>Search commands and keys</source>
        <translation>Search commands and keys</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Command</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Keys</translation>
    </message>
    <message>
        <source>no key</source>
        <translation>no key</translation>
    </message>
    <message>
        <source>No command is called that.</source>
        <translation>No command is called that.</translation>
    </message>
    <message>
        <source>Commands and their keys</source>
        <translation>Commands and their keys</translation>
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
        <source>Stamp</source>
        <translation>Stamp</translation>
    </message>
    <message>
        <source>Play position</source>
        <translation>Play position</translation>
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
    <message>
        <source>Undo %1</source>
        <translation>Undo %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Redo %1</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>edit time</source>
        <translation>edit time</translation>
    </message>
    <message>
        <source>edit text</source>
        <translation>edit text</translation>
    </message>
    <message>
        <source>Set offset of the time labels of the selected lines: (positive forward, negative backward)</source>
        <translation>Set offset of the time labels of the selected lines: (positive forward, negative backward)</translation>
    </message>
    <message>
        <source>offset</source>
        <translation>offset</translation>
    </message>
    <message>
        <source>offset of selected lines</source>
        <translation>offset of selected lines</translation>
    </message>
    <message>
        <source>1 time would have been before the start: it is 00:00.00 now.</source>
        <translation>1 time would have been before the start: it is 00:00.00 now.</translation>
    </message>
    <message>
        <source>%1 times would have been before the start: they are 00:00.00 now.</source>
        <translation>%1 times would have been before the start: they are 00:00.00 now.</translation>
    </message>
    <message>
        <source>stamp</source>
        <translation>stamp</translation>
    </message>
    <message>
        <source>new line</source>
        <translation>new line</translation>
    </message>
    <message>
        <source>nudge</source>
        <translation>nudge</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>paste</translation>
    </message>
    <message>
        <source>paste text</source>
        <translation>paste text</translation>
    </message>
    <message>
        <source>There is no text on the clipboard.</source>
        <translation>There is no text on the clipboard.</translation>
    </message>
    <message>
        <source>drop text</source>
        <translation>drop text</translation>
    </message>
    <message>
        <source>delete line</source>
        <translation>delete line</translation>
    </message>
    <message>
        <source>delete %1 lines</source>
        <translation>delete %1 lines</translation>
    </message>
    <message>
        <source>delete all lines</source>
        <translation>delete all lines</translation>
    </message>
    <message>
        <source>duplicate</source>
        <translation>duplicate</translation>
    </message>
    <message>
        <source>move up</source>
        <translation>move up</translation>
    </message>
    <message>
        <source>move down</source>
        <translation>move down</translation>
    </message>
    <message>
        <source>merge</source>
        <translation>merge</translation>
    </message>
    <message>
        <source>split</source>
        <translation>split</translation>
    </message>
    <message>
        <source>load lyric</source>
        <translation>load lyric</translation>
    </message>
    <message>
        <source>Open lyric file</source>
        <translation>Open lyric file</translation>
    </message>
    <message>
        <source>Lyrics (*.lrc *.txt);;All files (*)</source>
        <translation>Lyrics (*.lrc *.txt);;All files (*)</translation>
    </message>
    <message>
        <source>This file was not opened.</source>
        <translation>This file was not opened.</translation>
    </message>
    <message>
        <source>It is empty, cannot be read, or is not in UTF-8. Save it as UTF-8 and open it again.</source>
        <translation>It is empty, cannot be read, or is not in UTF-8. Save it as UTF-8 and open it again.</translation>
    </message>
    <message>
        <source>The dropped lyric is here. Undo brings back the one before it.</source>
        <translation>The dropped lyric is here. Undo brings back the one before it.</translation>
    </message>
    <message>
        <source>tag</source>
        <translation>tag</translation>
    </message>
    <message>
        <source>untag</source>
        <translation>untag</translation>
    </message>
    <message>
        <source>untag all</source>
        <translation>untag all</translation>
    </message>
    <message>
        <source>restore</source>
        <translation>restore</translation>
    </message>
    <message>
        <source>LRC source</source>
        <translation>LRC source</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>typing</source>
        <translation>typing</translation>
    </message>
    <message>
        <source>Stamp · %1</source>
        <translation>Stamp · %1</translation>
    </message>
    <message>
        <source>Show the LRC text in the place of the table</source>
        <translation>Show the LRC text in the place of the table</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Stamp the play position onto the selected line and go to the next</source>
        <translation>Stamp the play position onto the selected line and go to the next</translation>
    </message>
    <message>
        <source>Take the times and tags off the selected lines</source>
        <translation>Take the times and tags off the selected lines</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>Words</translation>
    </message>
    <message>
        <source>“%1” is no lyric file (.lrc or .txt, in UTF-8).</source>
        <translation>“%1” is no lyric file (.lrc or .txt, in UTF-8).</translation>
    </message>
    <message>
        <source>“%1” is here. Undo brings back the lyric before it.</source>
        <translation>“%1” is here. Undo brings back the lyric before it.</translation>
    </message>
    <message>
        <source>The times are %1 s later now.</source>
        <translation>The times are %1 s later now.</translation>
    </message>
    <message>
        <source>The times are %1 s earlier now.</source>
        <translation>The times are %1 s earlier now.</translation>
    </message>
    <message>
        <source>No lines were copied here. %1 makes lines of the text on the clipboard.</source>
        <translation>No lines were copied here. %1 makes lines of the text on the clipboard.</translation>
    </message>
    <message>
        <source>A line is split at the caret: edit its text first.</source>
        <translation>A line is split at the caret: edit its text first.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Search for the lyric</source>
        <translation>Search for the lyric</translation>
    </message>
    <message>
        <source>Search for the lyric of this song</source>
        <translation>Search for the lyric of this song</translation>
    </message>
    <message>
        <source>search</source>
        <translation>search</translation>
    </message>
    <message>
        <source>Show the finished lyric while it plays</source>
        <translation>Show the finished lyric while it plays</translation>
    </message>
    <message>
        <source>Align left</source>
        <translation>Align left</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Centre</translation>
    </message>
    <message>
        <source>Align right</source>
        <translation>Align right</translation>
    </message>
    <message>
        <source>Show the tag lines</source>
        <translation>Show the tag lines</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Alignment</translation>
    </message>
</context>
</TS>
