#pragma once

#include "korvel/platform/export.h"

namespace korvel {

/// The user's formats of numbers, angles and dates in an XML file.
///
///     SetAngleUnit('g');
///     SaveFormatStates("/home/me/formats.xml");
///     SetAngleUnit('r');
///     LoadFormatStates("/home/me/formats.xml");
///     GetAngleUnit();   // 'g'
///
/// A number or angle format that follows the regional settings is saved as following them, not as what they
/// say: loaded on another machine it leaves that machine's settings in force. Date formats are saved as their
/// texts: loaded, they follow the regional settings only where they equal them (see dates.h). The formats of
/// stations and man-days are not saved. All this belongs to the thread of the windows.
///
/// A separator of one carriage return does not survive: line ends change into each other in these files (see
/// EscapeXmlText), and a line feed alone means an empty text.

/// Replaces the file: it holds the old formats or the new ones, never a part. \throws FileError
/// (platform/file_error.h) with the file's name and the reason, or Error with the file's name for a format
/// with a control character, which no XML file can hold; the old file is unchanged then, unless only the last
/// step failed, which makes sure that the new one outlives a crash
KORVEL_API void SaveFormatStates(const char* path);

/// Takes the formats of a file into the running services. Grids write the texts of each service of which
/// something was read again, once, at the end. Blanks around numbers and words count as nothing, in
/// separators and formats as themselves; a character that the code page of the library's texts lacks is read
/// as the library holds it.
///
/// \throws XmlFileError, with the file's name, line, position and the reason, for a file that is no
/// well-formed XML, in which an element is twice or inside one that holds a text; nothing changes then.
/// \throws UnreadableFile (platform/file_error.h), with the file's name and the reason, for one that cannot
/// be read; nothing changes then.
/// \throws XmlSchemaError when an element is missing or its text is no value; what was read
/// before it stays in force, and is shown.
KORVEL_API void LoadFormatStates(const char* path);

/// Puts every format that these files hold back to the regional settings, and angles to radians; grids write
/// their texts again. For a host that starts anew after a failed load. What a listener throws keeps no other
/// format from it: the first exception goes to the caller at the end.
KORVEL_API void ResetFormatStates();

} // namespace korvel
