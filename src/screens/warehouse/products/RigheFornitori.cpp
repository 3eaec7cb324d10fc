#include "screens/warehouse/products/RigheFornitori.h"

#include "core/values/Aritmetica.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;

records::DescrizioneForma FormaFornitore(int decimali) {
  constexpr int kCodice = 10;
  constexpr int kPercento = 7;
  constexpr int kCosto = 12;
  return {.campi = {DiCodice("Fornitore", "Fornitore", "fornitori", kCodice),
                    Digitato("codprfor", "Codice del fornitore", 30)
                        .Mostra(20)
                        .Aiuto("il codice con cui il fornitore conosce il prodotto"),
                    Digitato("xDescrizione", "Descrizione per ordini", 80)
                        .Aiuto("negli ordini sta al posto di quella del prodotto"),
                    Digitato("Prezzox", "Costo", kCosto).Decimali(decimali),
                    Digitato("xSc1", "sconti %", kPercento).Accanto(),
                    Digitato("xSc2", "", kPercento).Accanto(),
                    Digitato("xSc3", "", kPercento).Accanto()},
          .stretta = true};
}

std::vector<std::vector<Valore>> CelleFornitori(const warehouse::FornitoriProdotto& fornitori,
                                                Ambiente& ambiente) {
  std::vector<std::vector<Valore>> righe;
  for (const warehouse::FornitoreProdotto& riga : fornitori.Righe()) {
    righe.push_back(
        {riga.posi, riga.fornitore,
         NzStr(ambiente.Cerca("tessarc", "Fornitori", {{"Cod", riga.fornitore}}, "ragsoc1")),
         riga.codPrFor, riga.descrizione, riga.prezzo, riga.sc1, riga.sc2, riga.sc3,
         PrezzoNetto(riga.prezzo, riga.sc1, riga.sc2, riga.sc3)});
  }
  return righe;
}

std::vector<ColonnaGriglia> ColonneFornitori(int decimali) {
  return {{QStringLiteral("Posizione"), Tipo::Intero, 45, 2, QStringLiteral("Posi")},
          {QStringLiteral("Fornitore"), Tipo::Testo, 75},
          {QStringLiteral("Ragione sociale"), Tipo::Testo, 160},
          {QStringLiteral("Codice del fornitore"), Tipo::Testo, 120, 2, QStringLiteral("codprfor")},
          {QStringLiteral("Descrizione per ordini"), Tipo::Testo, 120, 2,
           QStringLiteral("Descrizione")},
          {QStringLiteral("Costo"), Tipo::Importo, 85, decimali, QStringLiteral("Prezzo")},
          {QStringLiteral("Sc.1"), Tipo::Importo, 50, 0, QStringLiteral("Sc1")},
          {QStringLiteral("Sc.2"), Tipo::Importo, 50, 0, QStringLiteral("Sc2")},
          {QStringLiteral("Sc.3"), Tipo::Importo, 50, 0, QStringLiteral("Sc3")},
          {QStringLiteral("Netto"), Tipo::Importo, 85, decimali}};
}

}  // namespace

DescrizioneRighe RigheFornitori(warehouse::ParteProdotto& parte,
                                archives::ContestoArchivio& prodotto,
                                const ProdottoInFinestra& finestra) {
  auto* fornitori = &parte.fornitori;
  auto& ambiente = prodotto.ambiente;
  const int decimali = parte.magazzino.decimaliPrezzo;
  return {
      .memoria = QStringLiteral("FornitoriProdotto"),
      .riga = QObject::tr("Fornitore"),
      .nuova = QObject::tr("Nuovo fornitore"),
      .aperta = "il nuovo fornitore non è stato confermato: confermarlo o abbandonarlo",
      .elenco = QObject::tr("Fornitori del prodotto"),
      .colonne = ColonneFornitori(decimali),
      .forma = FormaFornitore(decimali),
      .primoCampo = "Fornitore",
      .scheda = [fornitori]() -> Scheda& { return fornitori->Riga(); },
      .inRiga = [fornitori] { return fornitori->InRiga(); },
      .rigaNuova = [fornitori] { return fornitori->RigaNuova(); },
      .modificate = [&parte] { return parte.fornitori.Modificati() || parte.allegati.InAttesa(); },
      .celle = [fornitori, &ambiente] { return CelleFornitori(*fornitori, ambiente); },
      .apri = [fornitori, raccogli = finestra.raccogli](
                  const Valore& posi) { return raccogli() && fornitori->Apri(posi.Intero()); },
      .inizia = [fornitori,
                 raccogli = finestra.raccogli] { return raccogli() && fornitori->Nuova(); },
      .conferma = [fornitori,
                   &ambiente](std::string& campo) { return fornitori->Conferma(ambiente, &campo); },
      .elimina = [fornitori, &ambiente] { return fornitori->Elimina(ambiente.Dialogo()); },
      .annulla = [fornitori] { fornitori->Annulla(); },
      .chiudi =
          [&parte, &ambiente] {
            parte.fornitori.Leggi(ambiente, "");
            parte.allegati.Scollega();
          },
      .pulsanti = {{QStringLiteral("AggiornaCostoDigitato"),
                    QObject::tr("aggiorna 'costo digitato'"),
                    QObject::tr(
                        "porta nel costo digitato il costo di questo fornitore, al netto degli "
                        "sconti"),
                    [&parte, &prodotto, mostra = finestra.mostra] {
                      warehouse::AggiornaCostoDigitato(prodotto, parte);
                      mostra();
                    }}}};
}

}  // namespace fenalto::screens
