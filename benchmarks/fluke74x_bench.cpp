// A download and an upload with a Fluke 743 that takes no time itself. Usage: bench_fluke74x [TURNS]

#include "benchmarks/fluke_bench.h"
#include "benchmarks/quick_link3.h"
#include "drivers/fluke74x/driver.h"
#include "drivers/fluke74x/logged_dpclnk3.h"

namespace kelvane::bench {

namespace {

class QuickFluke74x final : public FlukeUnderBench {
  public:
    explicit QuickFluke74x(Session& session)
        : log_(session, Module74xInterface::identity.name.toString(), communicationLogFolder()),
          ports_(session.settings),
          logged_(loggedDpclnk3(link_, {log_, ports_})),
          driver_{session, *logged_} {}
    QString download(const QString& package) override {
        return Module74xInterface::Fluke74x_download(driver_, package);
    }
    QString upload() override { return Module74xInterface::Fluke74x_upload(driver_); }

  private:
    QuickLink3 link_;
    // As in the program, with the log off.
    CommunicationLog log_;
    SerialPorts ports_;
    std::unique_ptr<Dpclnk3> logged_;
    Fluke74x driver_;
};

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    using namespace kelvane;
    return bench::benchFluke(argc, argv, "fluke 743", [](Session& session) {
        return std::make_unique<bench::QuickFluke74x>(session);
    });
}
