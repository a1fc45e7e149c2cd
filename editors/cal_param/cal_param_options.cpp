#include "editors/cal_param/cal_param_options.h"

#include <QRadioButton>

#include <algorithm>

namespace kelvane {

const CalParamOption& optionOn(const CalParamControls& controls, std::span<const CalParamOption> options) {
    const auto on = std::ranges::find_if(
        options, [&](const CalParamOption& option) { return (controls.*option.control)->isChecked(); });
    return on == options.end() ? options.front() : *on;
}

} // namespace kelvane
