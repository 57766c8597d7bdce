#pragma once

#include <xercesc/util/XercesDefs.hpp>

#include <functional>
#include <memory>
#include <string>

#include <locale.h> // NOLINT(modernize-deprecated-headers): locale_t is no part of <clocale>

XERCES_CPP_NAMESPACE_BEGIN
class DefaultHandler;
class SAX2XMLReader;
XERCES_CPP_NAMESPACE_END

namespace Vorin::AppEngine {

/// Keeps the XML library initialised while it lives. Objects may come and go on any threads: its
/// own counting knows no threads, so all go through one lock.
class CXMLLibraryUse {
public:
    CXMLLibraryUse();
    ~CXMLLibraryUse();

    CXMLLibraryUse(const CXMLLibraryUse&) = delete;
    CXMLLibraryUse& operator=(const CXMLLibraryUse&) = delete;

    /// False when the library does not work; nothing of it may be used then.
    bool IsReady() const { return isReady; }

private:
    bool isReady = false;
};

/// Puts the calling thread into the "C" locale while it lives. The locale of the process, which is
/// the host's, stays as it is.
class CNumericLocaleScope {
public:
    CNumericLocaleScope();
    ~CNumericLocaleScope();

    CNumericLocaleScope(const CNumericLocaleScope&) = delete;
    CNumericLocaleScope& operator=(const CNumericLocaleScope&) = delete;

private:
    const locale_t classicLocale;
    const locale_t savedLocale;
};

/// A reader for documents of strangers, which sends its content and errors to `handler`. It opens
/// nothing but what it is given, and leaves `parse` by whatever `refuseDoctype` throws when there
/// is a DOCTYPE, before anything of it is taken.
std::unique_ptr<xercesc::SAX2XMLReader> CreateXMLReader(xercesc::DefaultHandler& handler,
                                                        std::function<void()> refuseDoctype);

} // namespace Vorin::AppEngine
