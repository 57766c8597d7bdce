#include "SkinEngine/Document/XMLReading.h"

#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <mutex>
#include <stdexcept>
#include <utility>

namespace Vorin::AppEngine {

namespace {

std::mutex& GetLibraryLock() {
    static std::mutex lock;
    return lock;
}

/// The library's own handler prints and ends the process, which is the host's.
class CThrowingPanicHandler : public xercesc::PanicHandler {
public:
    void panic(const PanicReasons reason) override {
        throw std::runtime_error(getPanicReasonString(reason));
    }
};

class CSkinXMLReader : public xercesc::SAX2XMLReaderImpl {
public:
    explicit CSkinXMLReader(std::function<void()> refuse) : refuseDoctype(std::move(refuse)) {
        using xercesc::XMLUni;
        // There is no grammar to look at, so nothing of one is looked for.
        setFeature(XMLUni::fgSAX2CoreValidation, false);
        setFeature(XMLUni::fgXercesSchema, false);
        setFeature(XMLUni::fgXercesLoadExternalDTD, false);
        setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
        setProperty(XMLUni::fgXercesSecurityManager, &securityManager);
    }

    /// Called when the head of a DOCTYPE has been read. The handler for lexical events would not
    /// hear of one that is empty.
    void doctypeDecl(const xercesc::DTDElementDecl& /*root*/, const XMLCh* const /*publicId*/,
                     const XMLCh* const /*systemId*/, const bool /*hasInternalSubset*/,
                     const bool /*hasExternalSubset*/) override {
        refuseDoctype();
    }

private:
    std::function<void()> refuseDoctype;
    xercesc::SecurityManager securityManager;
};

} // namespace

CXMLLibraryUse::CXMLLibraryUse() {
    static CThrowingPanicHandler panicHandler;
    const std::lock_guard<std::mutex> guard(GetLibraryLock());
    try {
        xercesc::XMLPlatformUtils::Initialize("en_US", nullptr, &panicHandler);
        isReady = true;
    } catch (const xercesc::XMLException&) {
        isReady = false;
    } catch (const std::exception&) {
        isReady = false;
    }
}

CXMLLibraryUse::~CXMLLibraryUse() {
    if (isReady) {
        const std::lock_guard<std::mutex> guard(GetLibraryLock());
        xercesc::XMLPlatformUtils::Terminate();
    }
}

CNumericLocaleScope::CNumericLocaleScope()
    : classicLocale(::newlocale(LC_ALL_MASK, "C", nullptr)), savedLocale(::uselocale(nullptr)) {
    if (classicLocale) {
        ::uselocale(classicLocale);
    }
}

CNumericLocaleScope::~CNumericLocaleScope() {
    ::uselocale(savedLocale);
    if (classicLocale) {
        ::freelocale(classicLocale);
    }
}

std::unique_ptr<xercesc::SAX2XMLReader> CreateXMLReader(xercesc::DefaultHandler& handler,
                                                        std::function<void()> refuseDoctype) {
    auto reader = std::make_unique<CSkinXMLReader>(std::move(refuseDoctype));
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    reader->setLexicalHandler(&handler); // else the reader looks for no DOCTYPE
    return reader;
}

} // namespace Vorin::AppEngine
