// The control of one described field.
#pragma once

#include "core/records/DescrizioneForma.h"
#include "core/session/Ambiente.h"

class QWidget;

namespace fenalto::screens {

/// A control that shows and types a field of that type, with its name, width and tooltip.
QWidget* CreaControllo(Ambiente& ambiente, const records::CampoForma& campo, Tipo tipo);

}  // namespace fenalto::screens
