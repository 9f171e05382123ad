#pragma once

#include <functional>
#include <string>
#include <vector>

#include "native/files/FileStamp.h"

namespace quorvane::workbench {

struct FileToSave {
  std::string path;          ///< as the file system has it; symbolic links are followed, the link stays
  std::string bytes;         ///< the whole file
  native::FileStamp opened;  ///< of the file that the bytes were made from
};

/// The system's rename(2), or what stands in for it.
using RenameFile = std::function<int(const char* from, const char* to)>;

/// Replaces all the files, or none when anything is amiss. Everything that can be checked is checked first, then the
/// new bytes of every file are written beside it and flushed, and only then the files are renamed, one by one. Mode is
/// kept, owner and group as far as the user may; of a file with several hard links only the name that is saved gets
/// the new bytes, the others keep the old. A path given twice with the same bytes is saved once.
///
/// Raises an error that names the file: when it changed on disk since `opened`, is gone, is no plain file, lacks its
/// write bit or the user's right to write, when two entries have different bytes for it, or when the new bytes cannot
/// be written (with the system's words). Nothing is renamed and no temporary file is left then. Raises too when a
/// rename or the flush of a folder fails after the first rename; that error names what was renamed and what was not.
///
/// Raises error 18, with nothing done, when a signal that ends the program came while the new bytes were written. A
/// save of several files that was cut short before (SaveJournal) is an error until that is settled; what else a process
/// that is gone left beside the files is removed.
///
/// Returns the stamps of the files now, in the order of `files`.
std::vector<native::FileStamp> SaveFiles(const std::vector<FileToSave>& files, const RenameFile& rename = {});

}  // namespace quorvane::workbench
