// The mark of a page that goes on.
#pragma once

namespace fenalto::reports {

/// Printed in `R_DESCRIZIONE` of a model, under the last line of a full page.
inline constexpr const char* kSeguePagina = "segue su pagina successiva";

}  // namespace fenalto::reports
