UTF-8


1 #2
{
	Description: S. Loyd 1859 (yacpdb 37503); key as published, confirmed unique by Popeye
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
	Answer:  Qh5-a5
}

2 #2
{
	Description: Meson PID 139280: W. Speckmann, Die Schwalbe 1966
	FEN: 5Q2/8/8/R7/8/1k6/4K3/8
	Answer:  Ra5-b5
}

3 #2
{
	Description: Meson PID 150679: E. Salardini, Western Morning News 1931
	FEN: 5K2/3p4/1Pp5/p3PQNn/N2k3r/PR1n3p/5r2/1B1R2B1
	Answer:  Bb1-a2
}

4 #2
{
	Description: Meson PID 152512: J.F. Moon, Hampstead and Highgate Express 1898
	FEN: 8/8/3p4/3R1P1N/Kn1Pk1N1/8/8/3Q4
	Answer:  Ng4-e5
}

5 #2
{
	Description: Meson PID 15627: R.A. Lincoln, Newark Star-Ledger 1986
	FEN: 1Knk4/1b3R2/8/8/Q7/3r4/8/8
	Answer:  Qa4-g4
}

6 #2
{
	Description: Meson PID 17231: P. ten Cate, Munchner Schachzeitung 1925
	FEN: Knr5/RPkpP3/p7/3b4/1Q1N4/8/8/8
	Answer:  Nd4-f5
}

7 #2
{
	Description: Meson PID 173159: J.F. Ling, Problem Observer 2005
	FEN: 8/8/8/8/1r1p4/1RQ4p/1RP4k/2K5
	Answer:  Qc3-e1
}

8 #2
{
	Description: Meson PID 173166: J.F. Ling, Problem Observer 2006
	FEN: 8/8/8/8/1r1p4/2R3Pp/1RP4k/2K1Q3
	Answer:  Rc3-b3
}

9 #2
{
	Description: Meson PID 181191: F.F.L. Alexander, British Chess Magazine 1911
	FEN: 7n/4R1K1/p7/4N3/3p1k2/3p2pP/6P1/1Bn1Q3
	Answer:  Qe1-a5
}

10 #2
{
	Description: Meson PID 181892: J.P. Taylor, San Francisco Chronicle 1905
	FEN: 4n2b/4p2B/4pkNQ/8/8/3K4/8/8
	Answer:  Kd3-d4
}

11 #2
{
	Description: Meson PID 182720: R.A. Lincoln, Problem Observer 2015
	FEN: 1rk5/1pP5/3PK3/R7/8/8/8/8
	Answer:  Ra5-a7
}

12 #2
{
	Description: Meson PID 203807: W.E. Caine, The Problemist 1954
	FEN: 5B2/1bppp1rr/2pkpRpR/8/1PnN1P2/1n4N1/3b1P2/6KB
	Answer:  Rf6-f5
}

13 #2
{
	Description: Meson PID 2068: P.F. Blake (source unknown)
	FEN: 4QK2/p6p/3p3r/3k3p/r3N2R/p1R5/8/3b1NB1
	Answer:  Rc3-f3
}

14 #2
{
	Description: Meson PID 227891: G. Ballo, Magyar Sakkvilag 1926
	FEN: 8/8/8/4p1p1/4Q3/7k/5Pp1/6K1
	Answer:  f2-f3
}

15 #2
{
	Description: Meson PID 234541: W. Speckmann (source unknown)
	FEN: 4k3/8/3PKP2/8/8/8/8/4B3
	Answer:  d6-d7
}

16 #2
{
	Description: Meson PID 23786: B.A. Sallay, Sakkelet 1996
	FEN: b3Q3/8/7B/1n1p2Nn/8/4P2P/2P1kp1N/2K2R2
	Answer:  Ng5-e4
}

17 #2
{
	Description: Meson PID 242063: E. Szentgyorgy, Magyar Sakkvilag 1936
	FEN: 8/8/4p3/7Q/2K1k3/8/6N1/8
	Answer:  Qh5-g4
}

18 #2
{
	Description: Meson PID 248901: R. Paslack, Die Schwalbe 1971
	FEN: 8/8/8/6Q1/6P1/3p4/1K2n1N1/3k4
	Answer:  Qg5-e3
}

19 #2
{
	Description: Meson PID 254482: O.F. Binkert, Die Schwalbe 1930
	FEN: 8/2K5/2RN4/3pk1B1/8/8/B7/8
	Answer:  Rc6-c3
}

20 #2
{
	Description: Meson PID 267928: J.E. Driver, The Problemist 1955
	FEN: 4r2B/p2B4/q6p/p1pk4/2N1N3/1P2KP2/8/8
	Answer:  Ke3-d3
}

21 #2
{
	Description: Meson PID 276652: K. Moen, Best Problems 2023
	FEN: 2n1B3/8/q3P2R/2Pk1NP1/1P2N3/p2p1KB1/3P4/2R4Q
	Answer:  Kf3-f2
}

22 #2
{
	Description: Meson PID 276658: L. Monti, Best Problems 2024
	FEN: b7/1r2p3/8/4Pp2/5k1K/4RN1P/5P2/8
	Answer:  Nf3-d4
}

23 #2
{
	Description: Meson PID 28615: C.F. Stubbs, Rochester Herald 1904
	FEN: 8/8/4k3/N1B4K/8/3R4/2Q5/8
	Answer:  Rd3-d5
}

24 #2
{
	Description: Meson PID 4618: C. Planck, Illustrated Sporting and Dramatic News 1884
	FEN: 8/2pN4/2n5/1N1p2b1/4k3/7K/3P4/5Q2
	Answer:  Kh3-g2
}

25 #2
{
	Description: Meson PID 46980: R.A. Lincoln, Newark Star-Ledger 2000 (Black may castle long)
	FEN: rN2k3/5R2/N1p1K3/8/8/8/8/8
	Answer:  Nb8-d7
}

26 #2
{
	Description: Meson PID 53098: A.W. Daniel, HM British Chess Magazine 1953
	FEN: 7b/1b2n3/8/1Q5p/3Pk3/1R6/K3N3/8
	Answer:  Qb5-g5
}

27 #2
{
	Description: Meson PID 54336: C.J. Morse & J.M. Rice, 1st Sp.Comm. The Problemist 2004 (version)
	FEN: 1B3Nrn/3BpqRN/3pbP1p/3QpkpR/2p2P2/2p1P2P/4n3/K7
	Answer:  f4:g5
}

28 #2
{
	Description: Meson PID 64748: Y. Cheylan, 2nd Comm. Gooderson MT (The Problemist) 1982
	FEN: 2Q4B/q1n5/ppNPP3/Pp5R/1Pk4K/b2NP3/n1P5/3R4
	Answer:  e6-e7
}

29 #2
{
	Description: Meson PID 81680: N.A. Macleod, The Problemist 1988
	FEN: 4B3/1K6/2RBk3/1Q1pP3/1P2r1P1/8/1n6/6b1
	Answer:  Rc6-b6
}

30 #2
{
	Description: Popeye REGRESSIONTESTS/4_57_to_4_59.reg (zugzwang regression)
	FEN: 8/5P1k/5K2/8/8/8/8/8
	Answer:  f7-f8R
}

31 #2
{
	Description: Popeye BEISPIEL/castling.inp -> castling.out
	FEN: 8/Q7/8/8/8/8/8/2k1K2R
	Answer:  Qa7-f2
}

32 #2
{
	Description: Popeye BEISPIEL/ep.inp -> ep.out
	FEN: 5r2/2P1p3/1K1k2N1/1bN1p1p1/2P1P1pB/6PB/5P2/5r1R
	Answer:  f2-f4
}

33 #3
{
	Description: Makaronets, Best Problems 2019; key as published, confirmed unique by Popeye
	FEN: K5R1/7p/7p/8/R3PkP1/3p1b2/3pBQn1/4n2N
	Answer:  Qf2-b6
}

34 #3
{
	Description: Meson PID 153314: V.A. Shmatov, StrateGems 2012
	FEN: 8/7p/8/4p2K/5kPP/1Q4N1/8/8
	Answer:  Qb3-a3
}

35 #3
{
	Description: Meson PID 78844: D.M. Howard, 3rd Prize Problem Observer 2007-08
	FEN: B7/8/7Q/4k3/KNp5/8/5P2/8
	Answer:  Qh6-g6
}

36 #3
{
	Description: Popeye BEISPIEL/castling.inp -> castling.out
	FEN: 8/2Pp4/8/N1P5/4p3/P1k5/8/R3K3
	Answer:  0-0-0
}

37 #3
{
	Description: Popeye BEISPIEL/sting.inp -> sting.out (part a, orthodox)
	FEN: k7/2K5/4P3/8/2B5/8/8/8
	Answer:  Kc7-b6
}

38 #3
{
	Description: Popeye BEISPIEL/castling.inp -> castling.out
	FEN: 5Q2/8/2P1pP2/4k3/4P3/8/4N3/R3K2R
	Answer:  Qf8-e7
}

39 #4
{
	Description: anonymous #4 (gamesmaven); key as published, confirmed unique by Popeye
	FEN: 1br3r1/1Bp5/1pN1pB2/1P1RPPp1/2PPk1P1/K3Pp2/2b2P2/4N3
	Answer:  Rd5-c5
}

40 #4
{
	Description: chessdailynews 'Find the shortest mate' (Yancey_Ward)
	FEN: 1N1K4/2R5/3ppP2/1P1kpb2/2n4P/2P1PPB1/2npp1NQ/4b3
	Answer:  Qh2-h1
}

41 #4
{
	Description: Popeye BEISPIEL/castling.inp -> castling.out
	FEN: 5k2/7R/8/Pn6/8/8/8/R3K3
	Answer:  0-0-0
}

42 #4
{
	Description: Popeye BEISPIEL/castling.inp -> castling.out (published with option Threat 2)
	FEN: B3k2r/2pp1p1p/1p3B2/1np1p2p/Q7/8/8/R3K3
	Answer:  Ba8-h1
}

43 #5
{
	Description: S. Loyd, Excelsior, London Era 1861; key as published, confirmed unique by Popeye
	FEN: n1rb4/1p3p1p/1p6/1R5K/8/p3p1PN/1PP1R3/N6k
	Answer:  b2-b4
}

44 #5
{
	Description: matetools matetrackpv.epd line 140 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: 2RRK2n/1rP1p2N/1pp1k3/qp3p2/rp3P2/3N4/P1PB4/5B2
	Answer:  Ke8-f8
}

45 #5 AllSolutions
{
	Description: matetools matetrackpv.epd line 293 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: 2r5/p4p2/1p3Nk1/4Q3/8/P7/5PPP/3R2K1
	Answer:  Nf6-g4,  Nf6-h5
}

46 #6
{
	Description: Popeye BEISPIEL/castling.inp -> castling.out (published with option Threat 1)
	FEN: 4k3/1pp2pp1/8/b1B1pB2/rp6/p5N1/3R4/R2bK3
	Answer:  Ng3-h5
}

47 #6
{
	Description: matetools matetrackpv.epd line 305 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: 1b6/8/4pp2/1pQbkp2/5p2/5P2/4K3/8
	Answer:  Ke2-d2
}

48 #7
{
	Description: matetools matetrackpv.epd line 806 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: 3r3k/4Qp1p/2p1p3/1pR4P/b2qr3/6R1/PPP2PP1/6K1
	Answer:  Rc5-d5
}

49 #7 AllSolutions
{
	Description: matetools matetrackpv.epd line 685 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: 1B5r/8/8/1b6/8/3p2RB/7k/5K2
	Answer:  Bb8-d6,  Bb8-c7
}

50 #8 AllSolutions
{
	Description: W.A. Shinkman, St. Louis Globe Democrat 1887 (futilitycloset.com; chess.com notes two keys)
	FEN: k7/P7/P7/P7/P7/P7/P7/R3K3
	Answer:  0-0-0,  Ke1-d2
}

51 #8
{
	Description: matetools matetrackpv.epd line 2475 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: 8/5b2/8/8/8/K3p2Q/p7/rkr5
	Answer:  Qh3-h7
}

52 #9 AllSolutions
{
	Description: KQK, shortest mate 9; all keys by Popeye
	FEN: 8/8/8/3k4/8/8/8/KQ6
	Answer:  Ka1-b2,  Qb1-e1,  Qb1-f5,  Qb1-g6
}

53 #9
{
	Description: matetools matetrackpv.epd line 3450 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: b3kqr1/2p1p2K/2R2b2/1Q6/p1p5/1p6/8/8
	Answer:  Rc6:c7
}

54 #10
{
	Description: KRK; mate length and all optimal keys from the Gaviota tablebases
	FEN: 7k/8/8/8/8/8/8/KR6
	Answer:  Rb1-g1
}

55 #10
{
	Description: matetools matetrackpv.epd line 4097 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: 8/4p1p1/4p1P1/8/P6p/p6p/P6p/5K1k
	Answer:  a4-a5
}

56 #12
{
	Description: KRK; mate length and all optimal keys from the Gaviota tablebases
	FEN: 8/8/8/8/8/4k3/8/KR6
	Answer:  Rb1-b4
}

57 #14
{
	Description: KRK; mate length and all optimal keys from the Gaviota tablebases
	FEN: 8/8/8/8/8/2k5/8/KR6
	Answer:  Rb1-d1
}

58 #15 AllSolutions
{
	Description: KRK; mate length and all optimal keys from the Gaviota tablebases
	FEN: 8/8/8/4k3/8/8/8/KR6
	Answer:  Ka1-b2,  Rb1-e1
}

59 #16 AllSolutions
{
	Description: KRK; mate length and all optimal keys from the Gaviota tablebases
	FEN: 8/8/8/8/8/2k5/1R6/K7
	Answer:  Ka1-a2,  Ka1-b1,  Rb2-a2,  Rb2-b1,  Rb2-b7,  Rb2-b8,  Rb2-g2,  Rb2-h2
}

60 #17
{
	Description: matetools matetrackpv.epd line 5995 (ChestUCI-derived suite; key = first move of proven PV)
	FEN: k7/1pP5/1P6/8/8/K4rNQ/1NRRBB2/8
	Answer:  Be2-d3
}

61 s#3
{
	Description: Popeye example BEISPIEL/selfref.inp; key as published, confirmed unique by Popeye
	FEN: 2K3nr/1PPpp2p/3R3p/3pNPkP/3P4/3PP2Q/8/3B4
	Answer:  f5-f6
}
