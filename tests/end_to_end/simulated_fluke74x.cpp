#include "simulators/fluke74x/field_work.h"
#include "testkit/fluke74x_runs.h"
#include "tests/end_to_end/simulated_fluke.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

namespace simulated = simulators::fluke74x;

bool isByHand(const simulated::Task& task) {
    return task.byHand.measure || task.byHand.source;
}

const QStringList mapSteps(7, u"DPC3mapStep"_s);

} // namespace

const SimulatedFluke& flukeUnderTest() {
    static const SimulatedFluke calibrator{
        .runs = demo::fluke74xRuns(),
        .name = u"Fluke 743/744"_s,
        .variables = "KELVANE_FLUKE74X",
        .held = heldIn<simulated::MemoryFile, isByHand>,
        .carryOut = carryOutPlan<simulated::MemoryFile, simulated::jobsOf, simulated::carryOut>,
        .closeLink = [](const CalibratorLinks& links) { links.fluke74x.DPC3close(); },
        .accepted = {u"PT-101"_s,  u"PT-102"_s,  u"PT-103"_s,  u"PT-104"_s,  u"PT-105"_s,  u"PT-106"_s,
                     u"PT-107"_s,  u"PT-108"_s,  u"TIT-201"_s, u"TIT-202"_s, u"TIT-203"_s, u"TIT-204"_s,
                     u"TIT-205"_s, u"TIT-206"_s, u"TIT-207"_s, u"IP-301"_s,  u"IP-302"_s,  u"IP-303"_s,
                     u"PI-304"_s,  u"LI-401"_s,  u"LI-402"_s,  u"LI-403"_s,  u"LI-404"_s,  u"FT-501"_s,
                     u"FI-502"_s,  u"VF-503"_s,  u"VT-601"_s,  u"VI-602"_s,  u"SC-603"_s,  u"PG-801"_s,
                     u"TCS-802"_s, u"RI-803"_s,  u"SG-804"_s,  u"AN-805"_s},
        .noAnswer = {2007, TextId::statusOpenFailed, u"DPC3ERR_OPEN_FAILED"_s},
        .errors = {{2002, TextId::statusMemoryInsufficient, u"DPC3ERR_MEMORY_SIZE"_s},
                   {2003, TextId::statusArgumentTooLong, u"DPC3ERR_ARGLEN"_s},
                   {2004, TextId::statusMemlistError, u"DPC3ERR_MEMLIST_ERROR"_s},
                   {2005, TextId::statusAtomInvalid, u"DPC3ERR_ATOM_INVALID"_s},
                   {2006, TextId::statusArgumentInvalid, u"DPC3ERR_BAD_ARG"_s},
                   {2007, TextId::statusOpenFailed, u"DPC3ERR_OPEN_FAILED"_s},
                   {2008, TextId::statusUnexpectedData, u"DPC3ERR_RECV_UNEXPECTED_DATA"_s},
                   {2009, TextId::statusResponseInvalid, u"DPC3ERR_COMPLIANCE_ERROR"_s},
                   {2010, TextId::statusCommunicationFailed, u"DPC3ERR_COMM_NOT_CONNECTED"_s},
                   {2011, TextId::statusWriteError, u"DPC3ERR_SEND_FAILED"_s},
                   {2012, TextId::statusReadError, u"DPC3ERR_RECV_FAILED"_s},
                   {2013, TextId::statusMapsUnavailable, u"DPC3ERR_MAPS_UNAVAILABLE"_s},
                   {2014, TextId::statusNoData, u"DPC3ERR_NO_DATA"_s},
                   {2015, TextId::statusLinkNotOpen, u"DPC3ERR_NOT_OPEN"_s},
                   {2016, TextId::lineCannotBeOpened, u"DPC3ERR_SETCOMMSTATE_FAILED"_s}},
        .ignoredCalls = {},
        // The memory is read twice.
        .uploadSteps = mapSteps + QStringList(6, u"DPC3uplStep"_s),
        .stepsBeforeImage = mapSteps,
        .imageStep = u"DPC3dnlStep"_s,
    };
    return calibrator;
}

} // namespace kelvane::testing
