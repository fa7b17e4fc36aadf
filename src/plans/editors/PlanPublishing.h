#pragma once

#include "PublishForm.h"

#include <QString>

/// Reads the copy of a plan that goes to the reviewers. False when it cannot be opened.
bool ReadPublishedPlan(const QString &path, PublishKind kind, PublishedFile &file);
