// A download and an upload with a Fluke 702 that takes no time itself. Usage: bench_fluke702 [TURNS]

#include "benchmarks/fluke_bench.h"
#include "benchmarks/quick_link.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke702/logged_dpclnk.h"

namespace kelvane::bench {

namespace {

class QuickFluke702 final : public FlukeUnderBench {
  public:
    explicit QuickFluke702(Session& session)
        : log_(session, Module702Interface::identity.name.toString(), communicationLogFolder()),
          ports_(session.settings),
          logged_(loggedDpclnk(link_, {log_, ports_})),
          driver_{session, *logged_} {}
    QString download(const QString& package) override {
        return Module702Interface::Fluke702_download(driver_, package);
    }
    QString upload() override { return Module702Interface::Fluke702_upload(driver_); }

  private:
    QuickLink link_;
    // As in the program, with the log off.
    CommunicationLog log_;
    SerialPorts ports_;
    std::unique_ptr<Dpclnk> logged_;
    Fluke702 driver_;
};

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    using namespace kelvane;
    return bench::benchFluke(argc, argv, "fluke 702", [](Session& session) {
        return std::make_unique<bench::QuickFluke702>(session);
    });
}
