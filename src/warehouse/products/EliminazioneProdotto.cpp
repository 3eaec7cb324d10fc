#include "warehouse/products/EliminazioneProdotto.h"

#include <map>

#include "core/records/Conferma.h"
#include "core/session/Allegati.h"
#include "core/sql/Criterio.h"
#include "core/store/TransazioneComune.h"
#include "core/values/PrimaLinea.h"
#include "core/values/Testo.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::warehouse {
namespace {

std::string DoveCod(const std::string& codice) {
  return " where " + sql::Criterio("Cod", "=", codice);
}

/// The product takes the documents that are filed with another one.
void PortaAllegati(Archivio& tessarc, const std::string& codice, const std::string& nuovo) {
  const auto id = [&](const std::string& cod) {
    return tessarc.Singolo(std::string("select ID from ") + kTabellaProdotti + DoveCod(cod));
  };
  tessarc.Esegui("update Allegati set IdRecord=" + sql::LetteraleSql(id(nuovo)) + " where " +
                 sql::Criterio("Tipo", "=", kAllegatiProdotti) + " and " +
                 sql::Criterio("IdRecord", "=", id(codice)));
}

/// Rows of suppliers of the one go behind those of the other.
void AccodaFornitori(Archivio& tessarc, const std::string& codice, const std::string& nuovo) {
  const auto ultima = [&](const std::string& cod) {
    return tessarc.Singolo("select Max(Posi) from prodottiFor_r" + DoveCod(cod)).Intero();
  };
  const std::string posti = std::to_string(ultima(nuovo) + ultima(codice));
  tessarc.Esegui("update prodottiFor_r set Posi=Posi+" + posti + DoveCod(codice));
}

/// What a merge finds twice, as conditions on the rows that give way, with what each is called.
struct Doppio {
  const char* tabella;
  const char* voce;  ///< column that stands on both
  const char* prodotto;
  const char* nome;
};
constexpr Doppio kDoppi[] = {{"prodottiFor_r", "Fornitore", "Cod", "fornitore "},
                             {"Listini_r", "Cod", "CodiceRiga", "listino "},
                             {"Db_r", "Cod", "CodiceRiga", "distinta base di "}};

std::string DoveDoppio(const Doppio& doppio, const std::string& codice, const std::string& nuovo) {
  const std::string tabella = doppio.tabella;
  return " from " + tabella + " where " + sql::Criterio(doppio.prodotto, "=", codice) + " and " +
         doppio.voce + " in (select " + tabella + "." + doppio.voce + " from " + tabella +
         " where " + sql::Criterio(tabella + "." + doppio.prodotto, "=", nuovo) + ")";
}

bool HaDistinta(Archivio& tessarc, const std::string& codice) {
  return !tessarc.Singolo("select top 1 1 from Db_r" + DoveCod(codice)).Nullo();
}

/// Takes away of a product what stands on the other one too.
void TogliDoppi(Archivio& tessarc, const std::string& codice, const std::string& nuovo) {
  for (const Doppio& doppio : kDoppi)
    tessarc.Esegui("delete *" + DoveDoppio(doppio, codice, nuovo));
  if (HaDistinta(tessarc, nuovo)) tessarc.Esegui("delete * from Db_r" + DoveCod(codice));
  AccodaFornitori(tessarc, codice, nuovo);
}

std::vector<std::string> Componenti(Archivio& tessarc, const std::string& codice) {
  std::vector<std::string> componenti;
  for (Rs riga = tessarc.Recordset("select CodiceRiga from Db_r" + DoveCod(codice)); !riga.Eof();
       riga.MoveNext()) {
    componenti.push_back(riga.Fields(0).Testo());
  }
  return componenti;
}

}  // namespace

std::optional<std::string> ImpedimentoEliminazione(Ambiente& ambiente, const std::string& codice) {
  if (!HaDistinta(ambiente.ArchivioDi("tessarc"), codice)) return std::nullopt;
  return "il codice " + codice + " ha la distinta base \nbisogna prima eliminarla";
}

bool EliminaOvunque(Ambiente& ambiente, const std::string& codice,
                    const archives::PassoRiferimenti& passo) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  Allegati allegati(ambiente, kAllegatiProdotti, "");
  {
    TransazioneComune transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
    const Valore id =
        tessarc.Singolo(std::string("select ID from ") + kTabellaProdotti + DoveCod(codice));
    if (!id.Nullo()) allegati.Collega(id.Intero());
    if (!archives::StaccaCodice(ambiente, kTabellaProdotti, codice, passo)) return false;
    if (!id.Nullo()) allegati.EliminaRighe();
    tessarc.Esegui(std::string("delete * from ") + kTabellaProdotti + DoveCod(codice));
    transazione.Conferma();
  }
  allegati.EliminaFile();
  return true;
}

bool RinominaOvunque(Ambiente& ambiente, const std::string& codice, const std::string& nuovo,
                     const archives::PassoRiferimenti& passo) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  TransazioneComune transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
  const bool unione =
      !UgualeTesto(codice, nuovo) && ambiente.Esiste("tessarc", kTabellaProdotti, {{"Cod", nuovo}});
  if (unione) {
    TogliDoppi(tessarc, codice, nuovo);
    PortaAllegati(tessarc, codice, nuovo);
    tessarc.Esegui(std::string("delete * from ") + kTabellaProdotti + DoveCod(codice));
  } else {
    tessarc.Esegui(std::string("update ") + kTabellaProdotti +
                   " set Cod=" + sql::LetteraleSql(nuovo) + DoveCod(codice));
  }
  if (!archives::PortaCodice(ambiente, kTabellaProdotti, codice, nuovo, passo)) return false;
  transazione.Conferma();
  return true;
}

DoppiUnione TrovaDoppi(Ambiente& ambiente, const std::string& codice, const std::string& nuovo,
                       std::size_t massimo) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  DoppiUnione doppi;
  const auto uno = [&](const std::string& quale) {
    ++doppi.quanti;
    if (doppi.primi.size() < massimo) doppi.primi.push_back(quale);
  };
  for (const Doppio& doppio : kDoppi) {
    for (Rs riga =
             tessarc.Recordset(std::string("select ") + doppio.voce +
                               DoveDoppio(doppio, codice, nuovo) + " order by " + doppio.voce);
         !riga.Eof(); riga.MoveNext()) {
      std::string quale = doppio.nome + riga.Fields(0).Testo();
      if (std::string_view(doppio.voce) == "Fornitore") {
        quale += " " + NzStr(ambiente.Cerca("tessarc", "Fornitori", {{"Cod", riga.Fields(0)}},
                                            "ragsoc1"));
      }
      uno(quale);
    }
  }
  if (HaDistinta(tessarc, codice) && HaDistinta(tessarc, nuovo)) {
    uno("tutta la distinta base di " + codice);
  }
  return doppi;
}

std::string AnelloUnione(Ambiente& ambiente, const std::string& codice, const std::string& nuovo) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string& tenuta = HaDistinta(tessarc, nuovo) ? nuovo : codice;
  struct Passo {
    std::string codice;
    std::string da;  ///< component of the first level that leads here
  };
  std::vector<Passo> coda;
  for (std::string& primo : Componenti(tessarc, tenuta)) coda.push_back({primo, primo});
  std::map<std::string, bool> visti;
  for (std::size_t i = 0; i < coda.size(); ++i) {
    const Passo passo = coda[i];
    if (UgualeTesto(passo.codice, codice) || UgualeTesto(passo.codice, nuovo)) return passo.da;
    if (!visti.emplace(SenzaMaiuscole(passo.codice), true).second) continue;
    for (std::string& sotto : Componenti(tessarc, passo.codice)) {
      coda.push_back({std::move(sotto), passo.da});
    }
  }
  return {};
}

bool EliminazioneProdotto::Apri(const std::string& codice) {
  // The code may be the one that is open.
  const std::string dove = DoveCod(codice);
  codice_.clear();
  descrizione_.clear();
  fatto_.clear();
  const Rs riga = ambiente_.ArchivioDi("tessarc").Recordset(
      std::string("select Cod, Descrizione, um from ") + kTabellaProdotti + dove);
  if (riga.Eof()) return false;
  codice_ = riga.Fields(0).Testo();
  descrizione_ = PrimaLinea(NzStr(riga.Fields(1)));
  um_ = NzStr(riga.Fields(2));
  return true;
}

std::string EliminazioneProdotto::Titolo() const {
  return "il prodotto " + codice_ + "è presente nei seguenti documenti";
}

bool EliminazioneProdotto::Prendi(const std::string& codice, Rs& record) {
  record = ambiente_.ArchivioDi("tessarc").Recordset(std::string("select * from ") +
                                                     kTabellaProdotti + DoveCod(codice));
  if (record.Eof()) {
    ambiente_.Dialogo().Messaggio("il prodotto " + codice + " non esiste più", Icona::Avviso);
    return false;
  }
  const auto preso = record.Edit();
  if (preso) return true;
  const Detentore& chi = preso.Errore();
  ambiente_.Dialogo().Messaggio(chi.stazione.empty()
                                    ? "il prodotto " + codice + " non esiste più"
                                    : "il prodotto " + codice + " è in modifica " +
                                          chi.Descrizione() + ": chiudere prima la sua scheda",
                                Icona::Avviso);
  return false;
}

bool EliminazioneProdotto::Esegui(
    const std::string& testo, const std::vector<std::string>& daTenere,
    const std::function<bool(const archives::PassoRiferimenti&)>& lavoro) {
  constexpr std::int64_t kSenzaAvanzamento = 2'000;
  std::vector<Rs> tenuti(daTenere.size());
  for (std::size_t i = 0; i < tenuti.size(); ++i) {
    if (!Prendi(daTenere[i], tenuti[i])) return false;
  }
  bool fermato = false;
  const bool fatto = records::Tenta(ambiente_, {testo + " non riuscita: "}, [&] {
    const std::int64_t righe = archives::ContaRiferimenti(ambiente_, kTabellaProdotti, codice_);
    if (righe < kSenzaAvanzamento) return lavoro({});
    const auto avanzamento = ambiente_.Dialogo().Avvia(testo + " del prodotto " + codice_, righe);
    return lavoro([&](std::int64_t fatte) {
      fermato = !avanzamento->Avanza(fatte);
      return !fermato;
    });
  });
  for (Rs& record : tenuti) record.CancelUpdate();
  if (fermato) {
    ambiente_.Dialogo().Messaggio(testo + " interrotta: non è stato scritto nulla", Icona::Avviso);
  }
  return fatto;
}

bool EliminazioneProdotto::Elimina() {
  if (!Aperto()) return false;
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (!dialogo.Conferma("Conferma eliminazione\nprodotto " + codice_ + " " + descrizione_ +
                        "\nle righe che lo nominano restano, senza il suo codice: non contano "
                        "più per le esistenze")) {
    return false;
  }
  if (const auto impedimento = ImpedimentoEliminazione(ambiente_, codice_)) {
    dialogo.Messaggio(*impedimento, Icona::Avviso);
    return false;
  }
  if (!Esegui("eliminazione", {codice_}, [this](const archives::PassoRiferimenti& passo) {
        return EliminaOvunque(ambiente_, codice_, passo);
      })) {
    return false;
  }
  fatto_ = "OK";
  dialogo.Annuncia("prodotto " + codice_ + " ELIMINATO DAI DOCUMENTI");
  codice_.clear();
  return true;
}

bool EliminazioneProdotto::Accettato(const std::string& nuovo, bool unione,
                                     const std::string& descrizioneAltro) {
  constexpr std::size_t kElencati = 15;
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (!unione) {
    return dialogo.Conferma("Conferma modifica codice\nprodotto " + codice_ + " " + descrizione_ +
                            "\nnuovo codice " + nuovo);
  }
  const DoppiUnione doppi = TrovaDoppi(ambiente_, codice_, nuovo, kElencati);
  if (doppi.quanti > 0) {
    std::string testo = "resta quello che è su " + nuovo + ", e si perde da " + codice_ + ":";
    for (const std::string& uno : doppi.primi) testo += "\n" + uno;
    const std::int64_t altri = doppi.quanti - static_cast<std::int64_t>(doppi.primi.size());
    if (altri > 0) testo += "\n... e altri " + std::to_string(altri);
    dialogo.Messaggio(testo, Icona::Avviso);
  }
  std::string testo = "Conferma modifica codice\nil codice " + nuovo +
                      " esiste già: i due prodotti diventano uno solo\nscompare " + codice_ + " " +
                      descrizione_ + "\nresta " + nuovo + " " + descrizioneAltro;
  const std::string um =
      NzStr(ambiente_.Cerca("tessarc", kTabellaProdotti, {{"Cod", nuovo}}, "um"));
  if (!UgualeTesto(um, um_)) {
    testo += "\nle unità di misura sono diverse: " + (um_.empty() ? "nessuna" : um_) + " e " +
             (um.empty() ? "nessuna" : um);
  }
  return dialogo.Conferma(testo);
}

bool EliminazioneProdotto::Rinomina(const std::string& digitato, std::string* campo) {
  if (!Aperto()) return false;
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (campo != nullptr) *campo = "NuovoCodice";
  std::string nuovo(Rifila(digitato));
  const auto rifiuta = [&](const std::string& testo) {
    dialogo.Messaggio(testo, Icona::Avviso);
    return false;
  };
  if (nuovo.empty()) return rifiuta("inserire un codice");
  if (nuovo == codice_) return rifiuta("il nuovo codice è quello che il prodotto ha già");
  if (LunghezzaTesto(nuovo) > std::size_t{kCaratteriCodiceProdotto}) {
    return rifiuta("il codice può avere al massimo " + std::to_string(kCaratteriCodiceProdotto) +
                   " caratteri");
  }
  if (const std::string difetto = DifettoTesto(nuovo); !difetto.empty()) return rifiuta(difetto);
  EliminazioneProdotto altro(ambiente_);
  const bool unione = !UgualeTesto(nuovo, codice_) && altro.Apri(nuovo);
  if (unione) {
    nuovo = altro.Codice();
    if (const std::string anello = AnelloUnione(ambiente_, codice_, nuovo); !anello.empty()) {
      return rifiuta("i prodotti " + codice_ + " e " + nuovo + " non si possono unire: con " +
                     anello + " entrerebbero nella loro stessa distinta base");
    }
  }
  if (!Accettato(nuovo, unione, altro.Descrizione())) return false;
  std::vector<std::string> daTenere{codice_};
  if (unione) daTenere.push_back(nuovo);
  bool cambiato = false;
  if (!Esegui("modifica del codice", daTenere, [&](const archives::PassoRiferimenti& passo) {
        Transazione transazione(ambiente_.Basi());
        // Another station may have made, or erased, the product of the new code meanwhile.
        cambiato = !UgualeTesto(nuovo, codice_) &&
                   ambiente_.Esiste("tessarc", kTabellaProdotti, {{"Cod", nuovo}}) != unione;
        if (cambiato || !RinominaOvunque(ambiente_, codice_, nuovo, passo)) return false;
        transazione.Conferma();
        return true;
      })) {
    return cambiato ? rifiuta("il prodotto " + nuovo +
                              " è stato appena inserito o eliminato da un'altra stazione: "
                              "ripetere")
                    : false;
  }
  fatto_ = "OK";
  dialogo.Annuncia("prodotto " + codice_ + " SOSTITUITO con " + nuovo);
  codice_ = nuovo;
  ambiente_.Ricorda(AllArchivio("CODICIRIGA", nuovo));
  return true;
}

}  // namespace fenalto::warehouse
