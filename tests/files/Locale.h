#pragma once

#include "files/TemporaryFolder.h"

#include <clocale>
#include <cstdlib>
#include <string>

namespace TestFiles {

/// The process's locale for one test. One that the system lacks is made in a folder of its own.
class CLocale {
public:
    explicit CLocale(const std::string& name) {
        if (std::setlocale(LC_ALL, name.c_str())) {
            return;
        }
        const std::string language = name.substr(0, name.find('.'));
        const std::string command =
            "localedef -i " + language + " -f UTF-8 '" + folder.Path(name) + "' >/dev/null 2>&1";
        // Its warnings make it fail where the locale is fine.
        static_cast<void>(std::system(command.c_str()));
        setenv("LOCPATH", folder.GetPath().c_str(), 1);
        isThere = std::setlocale(LC_ALL, name.c_str());
    }
    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;
    ~CLocale() {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
    }

    bool isThere = true;

private:
    CTemporaryFolder folder;
};

} // namespace TestFiles
