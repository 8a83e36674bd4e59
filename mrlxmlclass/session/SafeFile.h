#pragma once

#include "mrlxmlclass/runtime/Collection.h"

namespace mrlxmlclass {

class Application;

/// Saves a project so that the old file stands until the new one is durable: whatever goes wrong, and whenever the
/// process dies, the file is wholly the old one or wholly the new one. Gives "" when the project was saved, otherwise
/// what went wrong, in words; the old file is untouched then.
///
/// The project goes into a copy in the same folder, which is checked (well-formed, every section there, as many records
/// as in memory), brought onto the disk and put in the place of the original, whose mode and attributes it takes over.
/// A link stays a link, an autosave name ends hidden, the lock stays held. The wizard's state is written last, unless
/// `persist` is False. A copy that a dead process left behind is gone after the next save.
String SaveSafely(const Ref<Application>& application, Boolean persist = True);

/// The names of the sections that a project file lacks, in the order in which they are written: a save that was
/// interrupted leaves such a file, and it loads without an error. Empty for a whole file. A file that cannot be read as
/// a project at all lacks every section.
Ref<Collection> MissingSections(const String& path);

}  // namespace mrlxmlclass
