// What each of the three runs moves, and how it asks and tells.

#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "ledger/closing/Chiusure.h"
#include "ledger/closing/ControlliChiusura.h"

namespace fenalto::ledger {

namespace {

constexpr int kDecimaliEuro = 2;

std::string NonPatrimoniale(const std::string& conto) {
  return "il conto " + conto + " non dovrebbe essere Patrimoniale";
}

}  // namespace

bool Chiusure::ConfermaEconomici() {
  constexpr Campi kCampi{"DtGiroEcon", "C_ProfittiPerdite", "Cau_ProfittiPerdite"};
  if (Mancano(kCampi)) return false;
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const std::string conto = Testo(kCampi.conto);
  if (ContoPatrimoniale(tessarc, conto)) return Rifiuta(NonPatrimoniale(conto), kCampi.conto);
  if (!ControllaCampi(kCampi)) return false;
  Corsa corsa = Prepara(Origine::GiroEconomico, kCampi);
  corsa.domanda = "CONFERMA GIRO CONTI ECONOMICI ?";
  corsa.nonRiuscita = "giro dei conti economici non riuscito: ";
  corsa.avanzamento = "Giro conti economici";
  corsa.messaggio = "Create registrazioni GIRO ECONOMICI - ";
  corsa.nulla = "Create registrazioni GIRO ECONOMICI - nessuna: i conti economici sono già a zero";
  // The closing account is economic too: moved by a giro repeated after the closing, it would turn
  // the whole balance sheet into profit.
  corsa.voci = [&](std::string&) {
    return VociDaMuovere(tessarc, ambiente_.Anno()).Conti(kEconomico, {conto, Testo("C_Chiusura")});
  };
  return EsegueCorsa(std::move(corsa));
}

bool Chiusure::ConfermaUtile() {
  constexpr Campi kCampi{"DtGiroEcon", "C_UtilePerdita", "Cau_UtilePerdita"};
  if (Mancano(kCampi)) return false;
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const std::string economico = Testo("C_ProfittiPerdite");
  const std::string patrimoniale = Testo(kCampi.conto);
  if (economico.empty()) {
    return Rifiuta("manca contropartita o causale o data", "C_ProfittiPerdite");
  }
  if (ContoPatrimoniale(tessarc, economico)) {
    return Rifiuta(NonPatrimoniale(economico), "C_ProfittiPerdite");
  }
  if (!ContoPatrimoniale(tessarc, patrimoniale)) {
    return Rifiuta("il conto " + patrimoniale + " non dovrebbe essere Economico", kCampi.conto);
  }
  if (const std::string ignoto = CodiciDiChiusura(ambiente_, economico, ""); !ignoto.empty()) {
    return Rifiuta(ignoto, "C_ProfittiPerdite");
  }
  if (!ControllaCampi(kCampi)) return false;
  const Importo saldo = SaldiEsercizio(tessarc, ambiente_.Anno()).Di("P", economico);
  const char* risultato = saldo.Negativo() ? "UTILE " : "PERDITA ";
  Corsa corsa = Prepara(Origine::GiroUtile, kCampi);
  corsa.scritta.descrizione = risultato + ("ESERCIZIO " + std::to_string(ambiente_.Anno()));
  corsa.domanda = "CONFERMA GIRO utile/perdita (" +
                  ScriviImporto(saldo.Assoluto(), ambiente_.Euro() ? kDecimaliEuro : 0) + ") ?";
  if (!saldo.Zero()) corsa.domanda += "\n" + corsa.scritta.descrizione;
  corsa.nonRiuscita = "giro dell'utile o della perdita non riuscito: ";
  corsa.avanzamento = "Giro utile/perdita";
  corsa.messaggio = "Creata registrazione utile/perdita - articolo n.";
  corsa.nulla = "Nessuna registrazione utile/perdita: il conto " + economico + " è a zero";
  corsa.unaSola = true;
  corsa.voci = [&tessarc, this, economico, saldo](std::string& rifiuto) {
    std::vector<VoceSaldo> voci;
    if (SaldiEsercizio(tessarc, ambiente_.Anno()).Di("P", economico) != saldo) {
      rifiuto = "il saldo del conto " + economico + " è cambiato intanto: ripetere";
    } else if (!saldo.Zero()) {
      voci.push_back({"P", economico, "", saldo});
    }
    return voci;
  };
  return EsegueCorsa(std::move(corsa));
}

bool Chiusure::ConfermaChiusura() {
  constexpr Campi kCampi{"DtGiroPatr", "C_Chiusura", "Cau_Chiusura"};
  if (Mancano(kCampi)) return false;
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const std::string conto = Testo(kCampi.conto);
  if (ContoPatrimoniale(tessarc, conto)) return Rifiuta(NonPatrimoniale(conto), kCampi.conto);
  if (!ControllaCampi(kCampi)) return false;
  Corsa corsa = Prepara(Origine::Chiusura, kCampi);
  corsa.domanda =
      "CONFERMA CHIUSURA CONTI PATRIMONIALI ?\n"
      "Nota: prima della chiusura fare il TRASPORTO AUTOMATICO SALDI sul nuovo anno\n"
      "altrimenti i saldi finali vengono azzerati e si devono registrare manualmente sul nuovo "
      "anno";
  const auto gravi =
      std::ranges::count_if(ControllaPrimaDiChiudere(ambiente_), &RilievoChiusura::grave);
  if (gravi > 0) {
    corsa.domanda += "\nAttenzione: i controlli danno " + std::to_string(gravi) +
                     (gravi == 1 ? " rilievo grave" : " rilievi gravi") +
                     " (pagina Controlli), qualcosa resterebbe indietro";
  }
  corsa.nonRiuscita = "chiusura dei conti patrimoniali non riuscita: ";
  corsa.avanzamento = "Chiusura conti patrimoniali";
  corsa.messaggio = "Create registrazioni chiusura patrimoniali - ";
  corsa.nulla =
      "Create registrazioni chiusura patrimoniali - nessuna: i conti patrimoniali sono già a zero";
  corsa.voci = [&](std::string&) {
    return VociDaMuovere(tessarc, ambiente_.Anno()).Conti(kPatrimoniale);
  };
  return EsegueCorsa(std::move(corsa));
}

}  // namespace fenalto::ledger
