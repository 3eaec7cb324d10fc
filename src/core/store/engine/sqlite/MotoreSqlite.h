// The embedded engine: databases are files, in a folder that stations may share.
#pragma once

#include "core/store/engine/Motore.h"

namespace fenalto::engine::sqlite {

const Motore& MotoreSqlite();

}  // namespace fenalto::engine::sqlite
