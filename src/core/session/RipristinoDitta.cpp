#include "core/session/RipristinoDitta.h"

#include <optional>
#include <stdexcept>

#include "core/session/CambioDitta.h"
#include "core/session/CopiaIntera.h"
#include "core/session/Ditte.h"
#include "core/session/FileIni.h"
#include "core/session/FileTesto.h"
#include "core/session/PresenzaDitta.h"
#include "core/sql/Criterio.h"
#include "core/store/CambioArchivi.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr const char* kNonRiuscito = "ripristino non riuscito, la ditta è com'era prima:\n";

/// Opens databases that aren't a session's, brings them up to date, and tells what is in them.
Esito<std::string> Guarda(const Ambiente& ambiente, const PercorsiArchivi& percorsi) {
  OpzioniApertura apertura;
  apertura.cartellaSchema = ambiente.CartellaDati() / "schema";
  auto basi = BasiDati::Apri(percorsi, apertura);
  if (!basi) return basi.Errore();
  try {
    return UltimiDati(*basi.Valore());
  } catch (const ErroreArchivio& errore) {
    return Errore{errore.what()};
  }
}

std::string Domanda(const Ambiente& ambiente, const CopiaDitta& copia) {
  std::string testo = "RIPRISTINO della ditta " + ambiente.Ditta() + " dalla copia " +
                      copia.Descrizione() +
                      "\nCiò che è stato scritto dopo la copia non ci sarà più, e andrà registrato "
                      "di nuovo.\nDei dati di adesso si fa prima una copia.";
  // Its own copies may bear the name that it had then.
  const bool sua = copia.cartella.parent_path() == CartellaCopie(ambiente);
  if (!sua && !copia.ditta.empty() && !UgualeTesto(copia.ditta, ambiente.Ditta())) {
    testo += "\nATTENZIONE: la copia è della ditta " + copia.ditta + ", non della ditta " +
             ambiente.Ditta() + ".";
  }
  return testo + "\nProseguo ?";
}

/// How a restore goes on.
class Ripristino {
 public:
  Ripristino(Ambiente& ambiente, CopiaDitta& copia, PresenzaEsclusiva& presa)
      : ambiente_(ambiente), copia_(copia), presa_(presa) {}

  bool Esegui() {
    if (!Prepara()) return false;
    if (!CopiaDiPrima()) {
      ScartaPreparati(presa_.Percorsi());
      return false;
    }
    // What isn't kept in a copy stays beside, as `.prima`.
    if (!Cambia()) return false;
    if (!prima_.empty()) TogliSostituiti(presa_.Percorsi());
    Racconta(RimettiAllegati());
    return true;
  }

 private:
  void Rifiuta(const std::string& perche) {
    ambiente_.Dialogo().Messaggio(kNonRiuscito + perche, Icona::Errore);
  }

  /// The new databases, whole, up to date and looked at, beside those in use.
  bool Prepara() {
    const auto lavoro = ambiente_.Dialogo().Avvia("Controllo della copia", 3);
    if (const auto buona = VerificaDella(ambiente_, copia_); !buona) {
      Rifiuta(buona.Errore().messaggio);
      return false;
    }
    if (!lavoro->Avanza(1)) return false;
    const auto pronti = PreparaCopia(copia_.archivi, presa_.Percorsi());
    if (!pronti) {
      Rifiuta(pronti.Errore().messaggio);
      return false;
    }
    const auto contenuto =
        lavoro->Avanza(2) ? Guarda(ambiente_, pronti.Valore()) : Esito<std::string>(Errore{});
    if (contenuto) {
      contenuto_ = contenuto.Valore();
      return true;
    }
    ScartaPreparati(presa_.Percorsi());
    if (!contenuto.Errore().messaggio.empty()) {
      Rifiuta("la copia " + copia_.Descrizione() +
              " non si può usare: " + contenuto.Errore().messaggio);
    }
    return false;
  }

  /// On the bad day the present data may be what can't be copied: then they stay beside.
  bool CopiaDiPrima() {
    const auto fatta = CopiaPrimaDi(ambiente_, "ripristino");
    if (fatta) {
      prima_ = fatta.Valore();
      return true;
    }
    return ambiente_.Dialogo().Conferma(
        "i dati di adesso non si possono copiare: " + fatta.Errore().messaggio +
        "\nSe si prosegue, gli archivi di adesso restano nella cartella della ditta con il nome "
        "che finisce in .prima.\nProseguo ugualmente ?");
  }

  bool Cambia() {
    presa_.Chiudi();
    if (const auto cambiati = CambiaArchivi(presa_.Percorsi()); !cambiati) {
      static_cast<void>(presa_.Riapri().Riuscito());
      Rifiuta(cambiati.Errore().messaggio);
      return false;
    }
    // The year that was open may not be in the copy.
    auto aperta = presa_.Riapri();
    if (!aperta) aperta = ambiente_.RiapriDitta(ditta_, 0, utente_);
    if (aperta) return true;
    const std::string perche = aperta.Errore().messaggio;
    const auto tornati = TornaAiSostituiti(presa_.Percorsi());
    static_cast<void>(presa_.Riapri().Riuscito());
    Rifiuta(tornati ? perche : perche + "\n" + tornati.Errore().messaggio);
    return false;
  }

  /// What couldn't come back; empty when everything did.
  std::string RimettiAllegati() {
    std::string guasti;
    const auto rimetti = [&](const fs::path& da, const fs::path& a) {
      if (da.empty()) return;
      try {
        CopiaFileSotto(da, a, {});
      } catch (const std::exception& errore) {
        guasti.append("\nNon tutti i file di «" + da.string() + "» sono tornati: ")
            .append(errore.what());
      }
    };
    rimetti(copia_.immagini, ambiente_.CartellaImmagini());
    rimetti(copia_.documenti, ambiente_.CartellaDocumenti());
    return guasti;
  }

  void Racconta(const std::string& guasti) {
    std::string testo = "La ditta " + ambiente_.Ditta() + " è tornata alla copia " +
                        copia_.Descrizione() + ".\n" + contenuto_;
    testo += prima_.empty()
                 ? "\ngli archivi di prima sono nella cartella «" +
                       ambiente_.CartellaDitta().string() + "», con il nome che finisce in .prima"
                 : NominaCopia(prima_);
    testo += guasti;
    if (ambiente_.ServeAccesso() && ambiente_.UtenteCorrente().cod.empty()) {
      testo += "\nLa copia ha i suoi utenti: entrare di nuovo con «Selezione Archivi».";
    }
    ambiente_.Dialogo().Messaggio(testo);
  }

  Ambiente& ambiente_;
  CopiaDitta& copia_;
  PresenzaEsclusiva& presa_;
  std::string ditta_ = ambiente_.Ditta();
  Utente utente_ = ambiente_.UtenteCorrente();
  std::string contenuto_;
  fs::path prima_;
};

/// A name for the new company that is still free.
std::string NomeLibero(const Ambiente& ambiente, const CopiaDitta& copia) {
  std::string sua = copia.ditta.empty() ? ambiente.Ditta() : copia.ditta;
  const auto libero = [&](const std::string& nome) {
    std::error_code errore;
    return !fs::exists(Ditte(ambiente.CartellaProgramma()).FileImpostazioni(nome), errore) &&
           !fs::exists(ambiente.CartellaDitta(nome), errore);
  };
  if (libero(sua)) return sua;
  const std::string radice = sua + " " + copia.data.Iso();
  std::string nome = radice;
  for (int n = 2; !libero(nome); ++n) nome = radice + " " + std::to_string(n);
  return nome;
}

/// Why a company of that name can't be made; empty when it can.
std::string NomeRifiutato(const Ambiente& ambiente, const std::string& nome) {
  if (const auto buono = VerificaNomeDitta(nome); !buono) return buono.Errore().messaggio;
  const fs::path ini = Ditte(ambiente.CartellaProgramma()).FileImpostazioni(nome);
  std::error_code errore;
  if (fs::exists(ini, errore)) {
    return "la ditta " + nome + " esiste già\n(file di inizializzazione " + ini.string() + ")";
  }
  const fs::path cartella = ambiente.CartellaDitta(nome);
  if (!fs::exists(cartella, errore)) return {};
  return "la cartella «" + cartella.string() + "» esiste già: scegliere un altro nome o spostarla";
}

/// The settings of the new company.
std::string ImpostazioniDi(const Ambiente& ambiente, const CopiaDitta& copia) {
  const auto letto = LeggiFileTesto(copia.Intera() ? copia.ini : ambiente.FileImpostazioni());
  if (!letto) throw std::runtime_error(letto.Errore().messaggio);
  FileIni ini = FileIni::DaTesto(letto.Valore());
  ini.Imposta("Archivi", "Tessarc", kFileTessarc);
  ini.Imposta("Archivi", "Scadenzario", kFileScadenzario);
  // Its own folders: nothing that is done in it may touch the other company's files.
  ini.Imposta("config", "DirectoryImm", "Immagini");
  ini.Imposta("config", "DirectoryDoc", "Documenti");
  return ini.Testo();
}

/// Fills the company under way with what the copy has; what is in it.
std::string Riempi(const Ambiente& ambiente, const CopiaDitta& copia,
                   const PercorsiArchivi& nuovi) {
  for (const auto& [da, a] : {std::pair{copia.archivi.tessarc, nuovi.tessarc},
                              std::pair{copia.archivi.scadenzario, nuovi.scadenzario}}) {
    fs::copy_file(da, a);
    fs::permissions(a, fs::perms::owner_write, fs::perm_options::add);
  }
  for (const auto& [da, nome] :
       {std::pair{copia.immagini, "Immagini"}, std::pair{copia.documenti, "Documenti"}}) {
    if (!da.empty()) CopiaFileSotto(da, nuovi.tessarc.parent_path() / nome, {});
  }
  auto contenuto = Guarda(ambiente, nuovi);
  if (!contenuto) throw std::runtime_error(contenuto.Errore().messaggio);
  return std::move(contenuto).Valore();
}

Esito<std::string> CreaDaCopia(const Ambiente& ambiente, const CopiaDitta& copia,
                               const std::string& nome, const std::string& adesso) {
  auto cantiere = CantiereDitta::Apri(Ditte(ambiente.CartellaProgramma()), nome, false, adesso);
  if (!cantiere) return cantiere.Errore();
  try {
    std::string contenuto = Riempi(ambiente, copia, cantiere.Valore().Archivi());
    const auto posata = cantiere.Valore().Posa(ImpostazioniDi(ambiente, copia));
    if (!posata) return posata.Errore();
    return contenuto;
  } catch (const std::exception& errore) {
    return Errore{errore.what()};
  }
}

}  // namespace

std::string UltimiDati(BasiDati& basi) {
  Archivio& tessarc = basi.Tessarc();
  const auto del = [](const Rs& rs) {
    return " n. " + std::to_string(rs.Fields("NumDoc").Intero()) + " del " +
           std::to_string(rs.Fields("Anno").Intero()) + ", in data " +
           rs.Fields("Dt").Data().Testo();
  };
  std::string testo;
  const Valore anno = tessarc.Singolo("SELECT Max(Anno) FROM Articoli");
  if (anno.Nullo()) {
    testo = "nessuna registrazione";
  } else {
    const std::string dellAnno =
        " FROM Articoli WHERE " + sql::Criterio("Anno", "=", anno.Intero());
    const Valore numero = tessarc.Singolo("SELECT Max(NumDoc)" + dellAnno);
    testo = "ultima registrazione:" +
            del(tessarc.Recordset("SELECT Anno, NumDoc, Dt" + dellAnno + " AND " +
                                  sql::Criterio("NumDoc", "=", numero.Intero())));
  }
  const Valore giorno = tessarc.Singolo("SELECT Max(Dt) FROM FattureCli");
  if (giorno.Nullo()) return testo + "\nnessun documento";
  const std::string delGiorno = " FROM FattureCli WHERE " + sql::Criterio("Dt", "=", giorno.Data());
  const Valore numero = tessarc.Singolo("SELECT Max(NumDoc)" + delGiorno);
  const Rs rs = tessarc.Recordset("SELECT TipoDoc, Anno, NumDoc, Dt" + delGiorno + " AND " +
                                  sql::Criterio("NumDoc", "=", numero.Intero()));
  return testo + "\nultimo documento: " + rs.Fields("TipoDoc").Testo() + del(rs);
}

bool RipristinaNellaDitta(Ambiente& ambiente, CopiaDitta copia) {
  if (!ambiente.Dialogo().Conferma(Domanda(ambiente, copia))) return false;
  auto presa = PrendiDitta(ambiente);
  if (!presa) {
    ambiente.Dialogo().Messaggio(presa.Errore().messaggio, Icona::Avviso);
    return false;
  }
  return Ripristino(ambiente, copia, presa.Valore()).Esegui();
}

bool RipristinaInNuova(Ambiente& ambiente, CopiaDitta copia) {
  Dialoghi& dialogo = ambiente.Dialogo();
  const auto nome = dialogo.Chiedi("Nome della ditta nuova, dalla copia " + copia.Descrizione(),
                                   NomeLibero(ambiente, copia));
  if (!nome) return false;
  if (const std::string no = NomeRifiutato(ambiente, *nome); !no.empty()) {
    dialogo.Messaggio(no, Icona::Avviso);
    return false;
  }
  const auto lavoro = dialogo.Avvia("Creazione della ditta " + *nome, 2);
  Esito<std::string> fatta = Errore{};
  const auto buona = VerificaDella(ambiente, copia);
  if (!buona) {
    fatta = buona.Errore();
  } else if (!lavoro->Avanza(1)) {
    return false;
  } else {
    fatta = CreaDaCopia(ambiente, copia, *nome, Adesso(ambiente.Ora()));
  }
  if (!fatta) {
    dialogo.Messaggio("la ditta " + *nome + " non è stata creata: " + fatta.Errore().messaggio,
                      Icona::Errore);
    return false;
  }
  std::string testo = "Creata la ditta " + *nome + " dalla copia " + copia.Descrizione() + ".\n" +
                      fatta.Valore() + "\nSi apre con «Selezione Archivi».";
  if (copia.documenti.empty()) {
    testo += " I documenti allegati non ci sono: la copia ha solo gli archivi.";
  }
  dialogo.Messaggio(testo);
  return true;
}

}  // namespace fenalto
