#pragma once

#include <memory>
#include <string>

namespace Vorin::Core {

/// Where something stands in a document: a file and a line, to be kept and shown later.
///
/// What a template gives stands where the template is called; the line inside the template is then
/// known too, as the origin. A default place is nowhere. A value: copies share the file's name.
class CDocumentPlace {
public:
    CDocumentPlace() = default;

    /// `fileName` is relative to the folder of the root document; lines count from 1, 0 is none.
    CDocumentPlace(std::shared_ptr<const std::string> fileName, int lineNumber)
        : file(std::move(fileName)), line(lineNumber) {}

    bool IsNowhere() const { return !file; }

    /// Never null; the empty text for nowhere.
    const char* GetFile() const { return file ? file->c_str() : ""; }
    int GetLine() const { return line; }

    /// Whether a template stands in between. Its own file and line, else those of the place.
    bool HasOrigin() const { return originFile != nullptr; }
    const char* GetOriginFile() const { return originFile ? originFile->c_str() : GetFile(); }
    int GetOriginLine() const { return originFile ? originLine : line; }

    /// This place as that of content which `call` has brought in.
    CDocumentPlace CalledFrom(const CDocumentPlace& call) const {
        CDocumentPlace place(call.file, call.line);
        place.originFile = originFile ? originFile : file;
        place.originLine = GetOriginLine();
        return place;
    }

private:
    std::shared_ptr<const std::string> file;
    std::shared_ptr<const std::string> originFile;
    int line = 0;
    int originLine = 0;
};

} // namespace Vorin::Core
