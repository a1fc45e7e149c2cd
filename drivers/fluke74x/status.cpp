#include "drivers/fluke74x/link.h"
#include "drivers/link_status.h"

namespace kelvane::Module74xInterface {

namespace {

constexpr LinkStatus table[] = {
    {0, TextId::statusNoError, u"DPCERR_NONE"},
    {2001, TextId::statusObjectNotFound, u"DPC3ERR_NOT_FOUND"},
    {2002, TextId::statusMemoryInsufficient, u"DPC3ERR_MEMORY_SIZE"},
    {2003, TextId::statusArgumentTooLong, u"DPC3ERR_ARGLEN"},
    {2004, TextId::statusMemlistError, u"DPC3ERR_MEMLIST_ERROR"},
    {2005, TextId::statusAtomInvalid, u"DPC3ERR_ATOM_INVALID"},
    {2006, TextId::statusArgumentInvalid, u"DPC3ERR_BAD_ARG"},
    {2007, TextId::statusOpenFailed, u"DPC3ERR_OPEN_FAILED"},
    {2008, TextId::statusUnexpectedData, u"DPC3ERR_RECV_UNEXPECTED_DATA"},
    {2009, TextId::statusResponseInvalid, u"DPC3ERR_COMPLIANCE_ERROR"},
    {2010, TextId::statusCommunicationFailed, u"DPC3ERR_COMM_NOT_CONNECTED"},
    {2011, TextId::statusWriteError, u"DPC3ERR_SEND_FAILED"},
    {2012, TextId::statusReadError, u"DPC3ERR_RECV_FAILED"},
    {2013, TextId::statusMapsUnavailable, u"DPC3ERR_MAPS_UNAVAILABLE"},
    {2014, TextId::statusNoData, u"DPC3ERR_NO_DATA"},
    {2015, TextId::statusLinkNotOpen, u"DPC3ERR_NOT_OPEN"},
    {2016, TextId::lineCannotBeOpened, u"DPC3ERR_SETCOMMSTATE_FAILED"},
};

/// A code without a row has no words, so that one from 2000 on ends the work as if nothing had failed.
constexpr LinkStatuses statuses{.table = table, .unknown = {}, .firstShown = 100, .lastShown = 1999};

} // namespace

QString DPC3StatusText(Session& session, qint16 code, const QString& name) {
    return reportStatus(session, statuses, code, name);
}

QString statusWords(qint16 code) {
    return linkStatusText(table, code).value_or(QString());
}

QString statusName(qint16 code) {
    return linkStatusName(table, code);
}

} // namespace kelvane::Module74xInterface
