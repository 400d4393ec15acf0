// Where the program's files are.
#pragma once

#include <filesystem>

namespace parlorwire {

// The folder of the executable if files can be put there; else, or if the program is installed for
// all users under /usr and has no "config.ini" beside it from earlier, `user_data_folder`, which is
// created with its parents if need be. Never throws: a folder that can't be created shows at the
// first write.
std::filesystem::path ApplicationFolder(const std::filesystem::path& executable_folder,
                                        const std::filesystem::path& user_data_folder);

// Where the files are that came with the program: "share/parlorwire" beside the folder of the
// executable if that is there, else the folder of the executable. Never throws.
std::filesystem::path ProgramFolder(const std::filesystem::path& executable_folder);

}  // namespace parlorwire
