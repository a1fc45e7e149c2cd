#include "reports/open_previews.h"

#include "reports/report_preview.h"

#include <utility>

namespace kelvane {

OpenPreviews::OpenPreviews() = default;

OpenPreviews::~OpenPreviews() {
    close();
}

void OpenPreviews::add(std::unique_ptr<ReportPreview> preview) {
    previews_ << preview.release();
}

void OpenPreviews::close() {
    for (const auto& preview : std::exchange(previews_, {}))
        delete preview.data();
}

} // namespace kelvane
