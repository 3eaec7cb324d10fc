// The fields that the windows of this folder have in common.
#pragma once

#include <QLayout>
#include <initializer_list>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/windows/Finestre.h"

namespace fenalto::screens {

/// An account of the chart, with its description; F3 opens the archive.
CampoCodice* CampoConto(const char* nome, Finestre& finestre);
CampoCodice* CampoCausale(const char* nome, Finestre& finestre);
/// A bank of presentation.
CampoCodice* CampoBanca(const char* nome, Finestre& finestre);

/// Amounts are typed in this width.
inline constexpr int kCifreImporto = 14;
inline constexpr int kCifreNumero = 8;
/// The number of an invoice is a text: what it may hold, and what is seen of it.
inline constexpr int kLunghezzaFattura = 30;
inline constexpr int kCifreFattura = 12;
/// What a due date's state means.
inline constexpr const char* kStati = "00 e 01 aperta, 10 pagata in parte, 30 pagata";

}  // namespace fenalto::screens
