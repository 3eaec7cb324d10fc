// The checks of a document's confirmation, in their order.
#include <algorithm>
#include <limits>

#include "core/session/ImpostazioneAttiva.h"
#include "documents/entry/FattureCliInterno.h"

namespace fenalto::documents {

// --- Save step -----------------------------------------------------------------------------------

std::optional<Rifiuto> FattureCli::Interno::ControllaMagazzini() {
  if (!ImpostazioneAttiva(ambiente, "MagObbligatorio")) return std::nullopt;
  if (!T("CausaleMag").empty() && Rifila(T("Mag")).empty()) {
    return Rifiuto{"inserire il codice del " + EtichettaMagazzino(), "Mag"};
  }
  if (tipo.tipoDocScaricoDB.empty()) return std::nullopt;
  const auto scarico = LeggiTipo(ambiente, tipo.tipoDocScaricoDB);
  if (!scarico || scarico->mag.empty()) {
    return Rifiuto{"inserire il codice del magazzino nel tipo documento " + tipo.tipoDocScaricoDB,
                   "Mag"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> FattureCli::Interno::NumeroOccupato() {
  if (!documento.Nuovo() || N("NumDoc") == 0) return std::nullopt;
  if (!ambiente.Esiste("tessarc", kTestaDocumenti,
                       IdentitaDocumento{tipo.cod, anno, N("NumDoc")}.Chiave())) {
    return std::nullopt;
  }
  return Rifiuto{"è stato forzato un numero documento già esistente", "NumDoc"};
}

std::optional<Rifiuto> FattureCli::Interno::ControllaNumero() {
  constexpr std::int64_t kUltimo = std::numeric_limits<std::int32_t>::max();
  if (N("NumDoc") < 0 || N("NumDoc") > kUltimo) {
    return Rifiuto{"il numero del documento va da 1 a " + std::to_string(kUltimo) +
                       ", o resta vuoto perché lo assegni il programma",
                   "NumDoc"};
  }
  return NumeroOccupato();
}

std::optional<Rifiuto> FattureCli::Interno::ControllaAggiunti() {
  if (D("Dt").Nulla()) return Rifiuto{"manca la data", "Dt"};
  if (I("ScontoCassa") > kTutto) {
    return Rifiuto{"lo sconto non può superare il 100 per cento", "ScontoCassa"};
  }
  if (auto rifiuto = ControllaLegati()) return rifiuto;
  AvvisaData();
  return std::nullopt;
}

std::optional<Rifiuto> FattureCli::Interno::Controlla() {
  if (Rifila(T("CliFor")).empty() && !EsistenzaIniziale()) {
    return Rifiuto{"manca CLIENTE o FORNITORE", "CliFor"};
  }
  if (auto rifiuto = ControllaMagazzini()) return rifiuto;
  if (B("NVarAnPrec") && !somme.vivi.totFat.Negativo()) {
    return Rifiuto{
        "E'stata spuntata la casella 'nota di variazione anni precedenti'\r\nse si tratta "
        "effettivamente di nota di variazione bisogna inserire il segno meno sugli importi",
        "NVarAnPrec"};
  }
  if (tipo.Bolla() && !DiClienti() && B("Fatturo")) {
    return Rifiuto{"non si può inserire un fornitore in quanto si tratta di un ddt da fatturare",
                   "Fatturo"};
  }
  if (auto rifiuto = ControllaNumero()) return rifiuto;
  AvvisaCommesse();
  return ControllaAggiunti();
}

void FattureCli::Interno::AvvisaCommesse() const {
  if (!ImpostazioneAttiva(ambiente, "CommesseVecchioSistema")) return;
  std::int64_t prima = 0;
  for (const RigaDocumento& una : righe.Tutte()) {
    if (una.commessa == 0 || una.commessa == prima) continue;
    if (prima == 0) {
      prima = una.commessa;
      continue;
    }
    Avviso(
        "E'stata fatturata più di una commessa: in contabilità viene trasportato il riferimento ad "
        "una sola commessa! " +
        std::to_string(prima));
    return;
  }
}

// --- Once more, in the transaction ---------------------------------------------------------------

std::optional<Rifiuto> FattureCli::Interno::ControllaTipo() {
  if (!documento.Nuovo()) return std::nullopt;
  const auto adesso = LeggiTipo(ambiente, tipo.cod);
  if (!adesso) {
    return Rifiuto{"il tipo documento " + tipo.cod +
                       " è stato eliminato mentre il documento era aperto: rimetterlo, o annullare "
                       "il documento",
                   ""};
  }
  const auto fermi = [](const TipoDocumento& t) {
    return std::tuple(t.tipoStampa, t.cfp, t.riva, t.causaleMag, t.cs, t.prezziIvati);
  };
  if (fermi(*adesso) == fermi(tipo)) return std::nullopt;
  return Rifiuto{"il tipo documento " + tipo.cod +
                     " è stato cambiato mentre il documento era aperto (tipo stampa, clienti o "
                     "fornitori, registro iva, causale movimentazione o prezzi ivati): rimetterlo "
                     "com'era, o annullare il documento",
                 ""};
}

std::optional<Rifiuto> FattureCli::Interno::ControllaCodiciDelleRighe() {
  const auto ignoto = [&](const char* campo, const char* didascalia, const char* fonte,
                          const RigaDocumento& una,
                          const std::string& codice) -> std::optional<Rifiuto> {
    if (codice.empty() || Esiste(fonte, codice) || perduti.contains(CodicePerduto(campo, codice))) {
      return std::nullopt;
    }
    auto rifiuto = archives::CodiceIgnoto(ambiente, {campo, didascalia, fonte}, codice);
    if (rifiuto) {
      rifiuto->messaggio = "riga " + std::to_string(una.posi) + ", " + rifiuto->messaggio;
      rifiuto->campo = "GrigliaRighe";
    }
    return rifiuto;
  };
  for (const RigaDocumento& una : righe.Tutte()) {
    auto rifiuto = ignoto("CodiceRiga", "Prodotto", "prodotti", una, una.codiceRiga);
    if (!rifiuto) rifiuto = ignoto("CodIva", "Codice iva", "codiciIva", una, una.codIva);
    if (!rifiuto) rifiuto = ignoto("Conto", "Conto", "conti", una, una.conto);
    if (rifiuto) return rifiuto;
  }
  return std::nullopt;
}

std::optional<Rifiuto> FattureCli::Interno::ControllaCodici() {
  noti.clear();
  if (auto rifiuto = ControllaTipo()) return rifiuto;
  if (auto rifiuto = NumeroOccupato()) return rifiuto;
  const auto cambiato = [&](const char* campo) {
    return documento.Nuovo() || testa.Modificata(campo);
  };
  if (cambiato("CliFor")) {
    auto rifiuto = archives::CodiceIgnoto(ambiente,
                                          {"CliFor", DiFornitori() ? "Fornitore" : "Cliente",
                                           DiFornitori() ? "fornitori" : "clienti"},
                                          T("CliFor"));
    if (rifiuto) return rifiuto;
  }
  if (cambiato(kMagDest)) {
    auto rifiuto = archives::CodiceIgnoto(
        ambiente, {kMagDest, "Magazzino di destinazione", "magazzini"}, T(kMagDest));
    if (rifiuto) return rifiuto;
  }
  for (const CodiceTesta& codice : kCodiciTesta) {
    if (!cambiato(codice.campo)) continue;
    auto rifiuto = archives::CodiceIgnoto(ambiente, {codice.campo, codice.didascalia, codice.fonte},
                                          T(codice.campo));
    if (rifiuto) return rifiuto;
  }
  return ControllaCodiciDelleRighe();
}

}  // namespace fenalto::documents
