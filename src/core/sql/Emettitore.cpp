#include "core/sql/Emettitore.h"

#include "core/sql/Tipi.h"

namespace fenalto::sql {

namespace {

std::string NomeFonte(const Fonte& fonte) {
  return "t" + std::to_string(fonte.numero);
}

}  // namespace

void Emettitore::Scrivi(std::string_view testo) {
  if (sql.size() + testo.size() > dialetto_.LunghezzaMassima())
    Rifiuta(0, "istruzione troppo lunga");
  sql += testo;
}

void Emettitore::Emetti(const Albero& albero) {
  switch (albero.genere) {
    case Istruzione::Genere::Selezione:
      return EmettiQuery(*albero.query, false);
    case Istruzione::Genere::Inserimento:
      return EmettiInserimento(albero);
    case Istruzione::Genere::Cancellazione:
      Scrivi("DELETE FROM " + albero.fonte->tabella->nomeMotore + " AS " +
             NomeFonte(*albero.fonte));
      break;
    case Istruzione::Genere::Aggiornamento: {
      Scrivi("UPDATE " + albero.fonte->tabella->nomeMotore + " AS " + NomeFonte(*albero.fonte));
      std::string_view prima = " SET ";
      for (const Albero::Assegnazione& a : albero.assegnazioni) {
        Scrivi(prima);
        Scrivi(dialetto_.Nome(a.colonna));
        Scrivi("=");
        EmettiEspr(*a.espr);
        prima = ", ";
      }
      break;
    }
  }
  if (!albero.dove) return;
  Scrivi(" WHERE ");
  EmettiCondizione(*albero.dove);
}

void Emettitore::EmettiInserimento(const Albero& albero) {
  Scrivi("INSERT INTO " + albero.fonte->tabella->nomeMotore);
  std::string_view prima = " (";
  for (const Albero::Assegnazione& a : albero.assegnazioni) {
    Scrivi(prima);
    Scrivi(dialetto_.Nome(a.colonna));
    prima = ", ";
  }
  Scrivi(") ");
  if (albero.query) return EmettiQuery(*albero.query, true);
  Scrivi("VALUES (");
  EmettiElenco(albero.valori, 0);
  Scrivi(")");
}

void Emettitore::EmettiQuery(const Query& query, bool derivata) {
  const bool unione = query.rami.size() > 1;
  for (std::size_t i = 0; i < query.rami.size(); ++i) {
    if (i > 0) Scrivi(query.unioneTutti[i - 1] ? " UNION ALL " : " UNION ");
    const Selezione& s = *query.rami[i];
    // In a union a limit belongs to its own SELECT.
    const bool racchiuso = unione && s.primi;
    if (racchiuso) Scrivi("SELECT * FROM (");
    EmettiRamo(s, query, derivata || racchiuso);
    if (racchiuso) Scrivi(dialetto_.Primi(*s.primi) + ")");
  }
  EmettiOrdine(query);
  const auto& primi = query.rami.front()->primi;
  if (!unione && primi) Scrivi(dialetto_.Primi(*primi));
}

void Emettitore::EmettiRamo(const Selezione& s, const Query& query, bool derivata) {
  Scrivi(s.distinta ? "SELECT DISTINCT " : "SELECT ");
  EmettiVoci(s, query, derivata);
  if (s.da) {
    Scrivi(" FROM ");
    EmettiDa(*s.da);
  }
  EmettiDove(s);
  std::string_view prima = " GROUP BY ";
  for (const EsprPtr& gruppo : s.gruppi) {
    Scrivi(prima);
    EmettiTermine(*gruppo);
    prima = ", ";
  }
  if (s.avendo) {
    Scrivi(" HAVING ");
    EmettiCondizione(*s.avendo);
  }
}

void Emettitore::EmettiVoci(const Selezione& s, const Query& query, bool derivata) {
  std::size_t numero = 0;
  for (const Voce& voce : s.voci) {
    if (numero > 0) Scrivi(", ");
    EmettiTesto(*voce.espr);
    ++numero;
    if (derivata) Scrivi(" AS c" + std::to_string(numero));
  }
  if (!query.emettiRiga) return;
  Scrivi(", " + NomeFonte(*query.base) + ".");
  Scrivi(query.base->tabella != nullptr ? dialetto_.Riga() : "riga");
  if (derivata) Scrivi(" AS riga");
}

void Emettitore::EmettiDove(const Selezione& s) {
  std::string_view prima = " WHERE ";
  const auto scrivi = [&](const Espr& e) {
    Scrivi(prima);
    EmettiCondizione(e);
    prima = " AND ";
  };
  if (s.dove) scrivi(*s.dove);
  for (const EsprPtr& aggiunta : s.aggiunte) scrivi(*aggiunta);
}

/// A bare number in ORDER BY or GROUP BY would be taken for a column's place.
void Emettitore::EmettiTermine(const Espr& e) {
  const Espr* p = &e;
  while (p->genere == GenereEspr::Rinvio) p = p->rinvio;
  const bool numero = p->genere == GenereEspr::Letterale && p->indice < 0 && p->tipo != Tipo::Testo;
  if (!numero) return EmettiTesto(e);
  const Dialetto::Scrittura costante = dialetto_.Costante();
  Scrivi(costante.prima);
  EmettiEspr(*p);
  Scrivi(costante.dopo);
}

void Emettitore::EmettiOrdine(const Query& query) {
  std::string_view prima = " ORDER BY ";
  const Selezione& s = *query.rami.front();
  const bool sola = query.rami.size() == 1 && !s.distinta;
  for (const VoceOrdine& voce : query.ordine) {
    const Espr& e =
        voce.colonna >= 0 ? *s.voci[static_cast<std::size_t>(voce.colonna)].espr : *voce.espr;
    if (sola && ECifre(e)) {
      // 9 before 10, and then 10/A.
      Scrivi(prima);
      Scrivi(Descrizione(Fn::Val).nome);
      Scrivi("(");
      EmettiEspr(e);
      Scrivi(")");
      Scrivi(dialetto_.Verso(voce.discendente));
      prima = ", ";
    }
    Scrivi(prima);
    if (voce.colonna >= 0) {
      Scrivi(std::to_string(voce.colonna + 1));
    } else {
      EmettiTermine(*voce.espr);
    }
    Scrivi(dialetto_.Verso(voce.discendente));
    prima = ", ";
  }
}

void Emettitore::EmettiDa(const Da& da) {
  if (da.genere == Da::Genere::Giunzione) {
    EmettiDa(*da.sinistra);
    Scrivi(da.giunzione == TipoGiunzione::Virgola   ? ", "
           : da.giunzione == TipoGiunzione::Interna ? " JOIN "
                                                    : " LEFT JOIN ");
    const bool annidata = da.destra->genere == Da::Genere::Giunzione;
    if (annidata) Scrivi("(");
    EmettiDa(*da.destra);
    if (annidata) Scrivi(")");
    if (da.condizione) {
      Scrivi(" ON ");
      EmettiCondizione(*da.condizione);
    }
    return;
  }
  if (da.fonte->query != nullptr) {
    Scrivi("(");
    EmettiQuery(*da.fonte->query, true);
    Scrivi(")");
  } else {
    Scrivi(da.fonte->tabella->nomeMotore);
  }
  Scrivi(" AS " + NomeFonte(*da.fonte));
}

}  // namespace fenalto::sql
