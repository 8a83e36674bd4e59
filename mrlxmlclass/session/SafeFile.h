#pragma once

#include "mrlxmlclass/runtime/Collection.h"

namespace mrlxmlclass {

class Application;

/// Saves a project so that the old file stands until the new one is durable: whatever goes wrong, and whenever the
/// process dies, the file is wholly the old one or wholly the new one. Gives "" when the project was saved, otherwise
/// a sentence that says what could not be done, for which path and why; the old file is untouched then. The one
/// exception says so itself: the new file stands, but the system could not promise that a power cut leaves it there.
///
/// The project goes into a copy in the same folder, which is checked (well-formed, every section there, no record cut
/// short, as many records as in memory), brought onto the disk and put in the place of the original, whose owner,
/// group, mode and attributes it takes over; where the group may not be given, the file's new group gets no right but
/// those of everybody. A link stays a link and its target is replaced, or made; other hard links keep the old file. An
/// autosave name ends hidden, the lock stays held. A file that `SaveXml` could not write over is refused, such as a
/// write-protected one. The wizard's state is written last, unless `persist` is False; what goes wrong there stands in
/// the error file only. A copy that a dead process left behind is gone after the next save; what else bears its
/// name, and does not begin as a saved file does, is gone around.
///
/// Hold the project's lock meanwhile: two savers of one file would share the copy.
String SaveSafely(const Ref<Application>& application, Boolean persist = True);

/// A sentence that says why SaveSafely would not replace that file as it is now; "" where it would. To be asked before
/// a person begins what could not be saved.
String WhyNotReplaceable(const String& file_name);

/// The names of the sections that a project file lacks, in the order in which they are written: a save that was
/// interrupted leaves such a file, and it loads without an error. Empty for a whole file. A file that cannot be read as
/// a project at all lacks every section.
Ref<Collection> MissingSections(const String& path);

}  // namespace mrlxmlclass
