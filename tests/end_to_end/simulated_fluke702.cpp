#include "simulators/fluke702/field_work.h"
#include "testkit/fluke702_runs.h"
#include "tests/end_to_end/simulated_fluke.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

namespace simulated = simulators::fluke702;

bool isByHand(const simulated::Task& task) {
    return task.byHand;
}

} // namespace

const SimulatedFluke& flukeUnderTest() {
    static const SimulatedFluke calibrator{
        .runs = demo::fluke702Runs(),
        .name = u"Fluke 702"_s,
        .variables = "KELVANE_FLUKE702",
        .held = heldIn<simulated::MemoryFile, isByHand>,
        .carryOut = carryOutPlan<simulated::MemoryFile, simulated::jobsOf, simulated::carryOut>,
        .closeLink = [](const CalibratorLinks& links) { links.fluke702.DPCclose(); },
        .accepted = {u"PT-101"_s,  u"PT-102"_s,  u"PT-103"_s,  u"PT-104"_s,  u"PT-105"_s,  u"PT-106"_s,
                     u"PT-107"_s,  u"PT-108"_s,  u"PI-304"_s,  u"VT-601"_s,  u"SC-603"_s,  u"RI-803"_s,
                     u"TIT-201"_s, u"TIT-202"_s, u"TIT-203"_s, u"TIT-204"_s, u"TIT-205"_s, u"TIT-206"_s,
                     u"TIT-207"_s, u"LI-401"_s,  u"LI-402"_s,  u"LI-403"_s,  u"LI-404"_s,  u"VI-602"_s,
                     u"FT-501"_s,  u"FI-502"_s,  u"VF-503"_s,  u"IP-301"_s,  u"IP-302"_s,  u"IP-303"_s},
        .noAnswer = {2019, TextId::statusCommunicationFailed, u"DPCERR_COMM_NOT_CONNECTED"_s},
        .errors = {{2012, TextId::statusMemoryInsufficient, u"DPCERR_MEMORY_SIZE"_s}},
        // What is called to tidy up beforehand, and the start of a state.
        .ignoredCalls = {u"MEMclear*1=0"_s, u"STAinit*1=0"_s, u"DPCclose*1=0"_s},
        .uploadSteps = QStringList(3, u"DPCuplStep"_s),
        .stepsBeforeImage = {},
        .imageStep = u"DPCdnlStep"_s,
    };
    return calibrator;
}

} // namespace kelvane::testing
