// The formula language of skins. The tree has an operator as the root of its operands, a bare name
// below a PARAM, a unary minus as a NEGATE, and a call as its name over the arguments.
grammar Formula;

options {
    language = C;
    tokenVocab = FormulaTokens;
    output = AST;
    ASTLabelType = pANTLR3_BASE_TREE;
}

tokens {
    PARAM;
    NEGATE;
}

// From the lowest precedence to the highest. Each level is left-associative, the power too.

expression : logicalExpression EOF! ;

logicalExpression : booleanAndExpression (OR^ booleanAndExpression)* ;

booleanAndExpression : equalityExpression (AND^ equalityExpression)* ;

equalityExpression : relationalExpression ((EQUALS^ | NOTEQUALS^) relationalExpression)* ;

relationalExpression : additiveExpression ((LTH^ | LTEQ^ | GT^ | GTEQ^) additiveExpression)* ;

additiveExpression : multiplicativeExpression ((PLUS^ | MINUS^) multiplicativeExpression)* ;

multiplicativeExpression : powerExpression ((MULT^ | DIV^ | MOD^) powerExpression)* ;

powerExpression : unaryExpression (POW^ unaryExpression)* ;

// A sign binds closest: -2^2 is (-2)^2, and there is one at most.
unaryExpression
    : primaryExpression
    | NOT^ primaryExpression
    | MINUS primaryExpression -> ^(NEGATE primaryExpression)
    ;

primaryExpression : '('! logicalExpression ')'! | value ;

value : STRING | INTEGER | FLOAT | DATETIME | BOOLEAN | function | parameter ;

parameter : IDENT -> ^(PARAM IDENT) ;

function : IDENT '(' (logicalExpression (',' logicalExpression)*)? ')' -> ^(IDENT logicalExpression*) ;

OR : '||' | 'or' ;
AND : '&&' | 'and' ;
EQUALS : '==' | '=' ;
NOTEQUALS : '!=' | '<>' ;
LTH : '<' ;
LTEQ : '<=' ;
GT : '>' ;
GTEQ : '>=' ;
PLUS : '+' ;
MINUS : '-' ;
MULT : '*' ;
DIV : '/' ;
MOD : '%' ;
POW : '^' ;
NOT : '!' | 'not' ;

STRING : '\'' (EscapeSequence | ~('\u0000'..'\u001f' | '\\' | '\''))* '\'' ;
INTEGER : '0'..'9'+ ;
FLOAT : '0'..'9'* '.' '0'..'9'+ ;
DATETIME : '#' (~'#')* '#' ;
BOOLEAN : 'true' | 'false' ;
IDENT : ('$' | 'A'..'Z' | '_' | 'a'..'z') ('$' | '.' | '0'..'9' | 'A'..'Z' | '_' | 'a'..'z')* ;

fragment EscapeSequence : '\\' ('\'' | '\\' | 'n' | 'r' | 't' | UnicodeEscape) ;
fragment UnicodeEscape : 'u' HexDigit HexDigit HexDigit HexDigit ;
fragment HexDigit : '0'..'9' | 'A'..'F' | 'a'..'f' ;

WS : (' ' | '\t' | '\n' | '\f' | '\r') { $channel = HIDDEN; } ;
