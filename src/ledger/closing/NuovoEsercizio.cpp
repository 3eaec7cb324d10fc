#include "ledger/closing/NuovoEsercizio.h"

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "ledger/closing/OperazioniAnno.h"

namespace fenalto::ledger {

namespace {

constexpr int kPrimoAnnoPossibile = 1990;  // where the system's dates begin
constexpr int kUltimoAnnoPossibile = 2099;

/// What a new year resets in the registers, one a line, to put it back.
std::string RegistriPrima(Archivio& tessarc) {
  std::string prima;
  for (Rs rs = tessarc.Recordset("select Cod, UltProtSt, Importochiusura from RegistriIva"
                                 " order by Cod");
       !rs.Eof(); rs.MoveNext()) {
    prima += rs.Fields("Cod").Testo() + "\t" + rs.Fields("UltProtSt").Neutro() + "\t" +
             rs.Fields("Importochiusura").Neutro() + "\n";
  }
  return prima;
}

}  // namespace

NuovoEsercizio::NuovoEsercizio(Ambiente& ambiente) : ambiente_(ambiente) {
  dati_.Aggiungi("AnnoNuovo", Tipo::Intero);
  dati_.Aggiungi("xEuro", Tipo::Booleano);
  dati_.Scrivi("AnnoNuovo", ambiente.Anni().empty() ? 0 : ambiente.Anni().back() + 1);
  dati_.Scrivi("xEuro", true);
}

bool NuovoEsercizio::Rifiuta(const std::string& testo) {
  campoRifiutato_ = "AnnoNuovo";
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

void NuovoEsercizio::Scrivi(int anno, bool euro) {
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  Rs ultimo = tessarc.Recordset("select * from Anni order by Anno desc");
  const bool primo = ultimo.Eof();
  tessarc.Inserisci("Anni",
                    {{"Anno", anno},
                     {"Euro", euro},
                     {"VER", primo ? Valore("000") : ultimo.Fields("VER")},
                     {"IvaTrimestrale", primo ? Valore(false) : ultimo.Fields("IvaTrimestrale")}});
  OperazioneAnno operazione;
  operazione.anno = anno - 1;
  operazione.operazione = kOperazioneNuovoAnno;
  operazione.annoScritto = anno;
  operazione.prima = RegistriPrima(tessarc);
  tessarc.Esegui("update RegistriIva set UltProtSt=0, Importochiusura=0");
  RegistraOperazione(ambiente_, tessarc, std::move(operazione));
}

std::vector<std::string> NuovoEsercizio::DaDire(int anno, bool euro) {
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  std::vector<std::string> testi{
      "Ora il programma verrà chiuso. Riavviandolo si potranno iniziare le registrazioni sul " +
      std::to_string(anno)};
  const Valore prima = tessarc.Singolo("select top 1 Euro from Anni where " +
                                       sql::Criterio("Anno", "<", anno) + " order by Anno desc");
  if (!prima.Nullo() && prima.Booleano() != euro) {
    testi.back() +=
        "\n(se si utilizza lo scadenzario è necessario effettuare la conversione delle scadenze da "
        "Lire a Euro tramite menu->scadenzario->archivio scadenze->'conversione scadenze in "
        "euro')";
  }
  if (!tessarc.Singolo("select top 1 1 from fatturecli_r where causalemag<>''").Nullo()) {
    testi.emplace_back(
        "Se è stata utilizzata la movimentazione del magazzino bisognerà effettuare il TRASPORTO "
        "ESISTENZE ");
  }
  return testi;
}

bool NuovoEsercizio::ConfermaNuovoAnno() {
  campoRifiutato_.clear();
  const auto anno = static_cast<int>(dati_.Leggi("AnnoNuovo").Intero());
  const bool euro = dati_.Leggi("xEuro").Booleano();
  const auto nuovo = [&] {
    return !ambiente_.Esiste("tessarc", "Anni", {{"Anno", anno}}) || Rifiuta("Anno già esistente");
  };
  std::vector<std::string> daDire;
  const bool fatto = records::Esegui(
      ambiente_, {.nonRiuscita = "apertura del nuovo anno non riuscita: ",
                  .numerazioni = {"ARTICOLI"},
                  .ambito = Transazione::Ambito::Tessarc,
                  .prima =
                      [&] {
                        if (!nuovo()) return false;
                        if (anno < kPrimoAnnoPossibile || anno > kUltimoAnnoPossibile) {
                          return Rifiuta("l'anno va da " + std::to_string(kPrimoAnnoPossibile) +
                                         " a " + std::to_string(kUltimoAnnoPossibile));
                        }
                        return ambiente_.Dialogo().Conferma("CONFERMA CREAZIONE NUOVO ANNO " +
                                                            std::to_string(anno));
                      },
                  .sottoBlocco = nuovo,
                  .scrivi =
                      [&] {
                        Scrivi(anno, euro);
                        // Read here: once it is written, nothing may fail any more.
                        daDire = DaDire(anno, euro);
                        return std::string();
                      }});
  if (!fatto) return false;
  for (const std::string& testo : daDire) ambiente_.Dialogo().Messaggio(testo);
  return true;
}

}  // namespace fenalto::ledger
