#include "screens/duedates/RigheRate.h"

#include <utility>

#include "duedates/codes/DescrizioneCodice.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;

records::DescrizioneForma FormaRata() {
  constexpr int kCifre = 5;
  return {.campi = {Digitato("Rata", "Rata", 2).Mostra(kCifre),
                    Digitato("PercImporto", "Percentuale", 9).Decimali(0).Accanto(),
                    Digitato("DopoMesi", "Dopo mesi", kCifre),
                    Digitato("DopoGiorni", "e giorni", kCifre).Accanto(),
                    Digitato("FineMese", "fine mese").CapoLinea("Scadenza"),
                    Digitato("DataFattura", "data fattura").Accanto(),
                    Digitato("GiornoFisso", "giorno fisso del mese dopo:").Accanto(),
                    Digitato("GGFisso", "", kCifre).Accanto(),
                    DiCodice("Tipo", "Tipo", "tipiPagamento", kCifre)
                        .Aiuto("per le riba su fatture tipo=03, negli altri casi il tipo è solo "
                               "un'indicazione"),
                    Digitato("Descrizione", "Descrizione").Mostra(39)}};
}

}  // namespace

DescrizioneRighe RigheRate(duedates::RateCodice& rate, std::function<Scheda&()> codice) {
  const auto celle = [&rate, codice = std::move(codice)] {
    const duedates::CodicePagamento aperto = rate.Codice(codice());
    std::vector<std::vector<Valore>> righe;
    for (const duedates::RataPagamento& rata : aperto.rate) {
      righe.push_back({rata.rata, rata.percImporto, duedates::TestoRata(rata, aperto), rata.tipo,
                       rata.descrizione});
    }
    return righe;
  };
  return {.memoria = QStringLiteral("CodiciPagamento"),
          .riga = QObject::tr("Rata"),
          .nuova = QObject::tr("Nuova rata"),
          .aperta = "la nuova rata non è stata confermata: confermarla o abbandonarla",
          .colonne = {{QStringLiteral("Rata"), Tipo::Testo, 50},
                      {QStringLiteral("Percentuale"), Tipo::Importo, 90, 0,
                       QStringLiteral("PercImporto")},
                      {QStringLiteral("Scadenza"), Tipo::Testo, 300},
                      {QStringLiteral("Tipo"), Tipo::Testo, 50},
                      {QStringLiteral("Descrizione"), Tipo::Testo, 200}},
          .forma = FormaRata(),
          .primoCampo = "PercImporto",
          .attese = true,
          .scheda = [&rate]() -> Scheda& { return rate.Riga(); },
          .inRiga = [&rate] { return rate.InRiga(); },
          .rigaNuova = [&rate] { return rate.RigaNuova(); },
          .modificate = [&rate] { return rate.Modificate(); },
          .celle = celle,
          .apri = [&rate](const Valore& chiave) { return rate.ApriRiga(chiave.Testo()); },
          .inizia = [&rate] { return rate.NuovaRiga(); },
          .conferma =
              [&rate](std::string& campo) {
                Rifiuto rifiuto;
                const bool riuscita = rate.ConfermaRiga(&rifiuto);
                campo = rifiuto.campo;
                return riuscita;
              },
          .elimina = [&rate] { return rate.EliminaRiga(); },
          .annulla = [&rate] { rate.AnnullaRiga(); },
          .chiudi = [&rate] { rate.Leggi(""); },
          .lasciato = [&rate](const std::string& campo) { rate.Lasciato(campo); }};
}

}  // namespace fenalto::screens
