#pragma once

#include "drivers/fluke74x/dpclnk3.h"
#include "drivers/fluke_prompts.h"
#include "drivers/link_status.h"

namespace kelvane::Module74xInterface {

/// A task of the image, by the references that opening it gives.
struct TaskReference {
    qint32 task = 0;
    qint32 atom = 0;
};

/// `Prompt74x`: the test messages of one instrument and the numbers under which the image has them.
struct DefinedPrompts {
    FlukePrompts prompts;
    QList<Dpclnk3::PromptNumbers> numbers;
};

/// Defines all messages, empty ones too. False when a status ended it.
bool definePrompts(Dpclnk3& link, StatusRule& rule, DefinedPrompts& defined);
/// Puts every message of that type ("PRE" or "PST") that has a text into the task. False when a status ended
/// it.
bool placePrompts(Dpclnk3& link, StatusRule& rule, const TaskReference& task, const DefinedPrompts& defined,
                  QStringView type);

} // namespace kelvane::Module74xInterface
